// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

/// `text` in one line that cannot steer a terminal: what steers (steeringEscape) becomes "\n",
/// "\t", "\r" or the "\x1b" of its bytes, and a backslash becomes two.
QString printable(const QString& text);

/// Whole lines, their bytes those of QFile::encodeName, as a terminal may see them: the same
/// without what steers, but with their line ends, and with backslashes as they are.
QByteArray printableLines(const QByteArray& lines);
