// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipnumber.h"

QString clipNumber(int index) {
    constexpr int fewestDigits = 4;
    return QStringLiteral("%1").arg(index, fewestDigits, 10, QLatin1Char('0'));
}
