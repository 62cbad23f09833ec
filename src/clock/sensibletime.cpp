// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sensibletime.h"

#include <cstdlib>

namespace {

constexpr int firstYear = 1990; ///< nobody kept recordings in files before
constexpr int lastYear = 2099;

/// The first days of clocks: of QuickTime, Unix, FAT and many a camera.
constexpr int firstDays[] = {1904, 1970, 1980, 2000};

} // namespace

std::optional<StartDoubt> flawOf(const QDateTime& time) {
    const QDate date = time.date();
    for (const int year : firstDays) {
        if (time.isValid() && std::abs(date.daysTo(QDate(year, 1, 1))) <= 1)
            return StartDoubt::ClockNotSet;
    }
    if (!time.isValid() || date.year() < firstYear || date.year() > lastYear)
        return StartDoubt::UnlikelyTime;
    return std::nullopt;
}

bool isAhead(const QDateTime& time, const QDateTime& now) {
    return now.isValid() && time > now.addYears(1);
}
