// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bitcursor.h"

int BitCursor::bits(int length) {
    const int number = bytes.bits(place, length);
    place += length;
    return number;
}

std::int64_t BitCursor::golomb() {
    constexpr int mostZeros = 29; // longer numbers stand nowhere where one is asked for
    int zeros = 0;
    while (zeros < mostZeros && bit() == 0)
        ++zeros;
    areNumbers = areNumbers && zeros < mostZeros;
    if (!areNumbers)
        return 0;
    std::int64_t number = 1;
    for (int i = 0; i < zeros; ++i)
        number = number << 1 | bit();
    return number - 1;
}

std::int64_t BitCursor::signedGolomb() {
    const std::int64_t number = golomb();
    return number % 2 == 0 ? -(number / 2) : (number + 1) / 2;
}
