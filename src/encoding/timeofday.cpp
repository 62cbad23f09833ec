// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeofday.h"

#include "truncation.h"

#include <cstdint>

int secondOfDay(double start, const QDateTime* videoStart) {
    std::uint32_t seconds = std::uint32_t(truncatedToInt(start));
    if (videoStart)
        seconds += videoStart->toTime_t();
    return std::int32_t(seconds) % 86400;
}
