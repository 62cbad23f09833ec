// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "shortestdigits.h"

#include <QLocale>

#include <array>
#include <charconv>

QByteArray shortestDigits(float value) {
    std::array<char, 32> digits{};
    std::to_chars(digits.data(), digits.data() + digits.size(), value);
    // Written anew, so that both kinds of number look alike.
    return shortestDigits(QByteArray(digits.data()).toDouble());
}

QByteArray shortestDigits(double value) {
    return QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
}
