// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// `text` in one line that cannot steer a terminal: control characters and line separators become
/// "\n", "\t", "\r" or the "\x1b" of their bytes, and a backslash becomes two.
QString printable(const QString& text);
