#pragma once

#include <QIcon>

/// The program's icon in sizes from 16 to 256 pixels. Needs a QGuiApplication.
QIcon applicationIcon();
