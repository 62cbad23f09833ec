// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bitrate.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int lowest = 10240;
constexpr int highest = 104857600;

bool fitsInt(double value) {
    return value > double(std::numeric_limits<int>::min()) - 1.0 &&
           value < double(std::numeric_limits<int>::max()) + 1.0;
}

} // namespace

int bitsPerSecond(double megabits) {
    const double bits = 1024.0 * (megabits * 1024.0);
    return fitsInt(bits) ? std::clamp(int(bits), lowest, highest) : lowest;
}
