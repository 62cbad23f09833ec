// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QIcon>

/// The program's icon in sizes from 16 to 256 pixels. Needs a QGuiApplication.
QIcon applicationIcon();
