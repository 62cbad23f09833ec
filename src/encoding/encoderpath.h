#pragma once

#include <QString>

/// The encoder beside the running program. Needs an application object.
QString encoderPath();
