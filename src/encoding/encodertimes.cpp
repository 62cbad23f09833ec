// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encodertimes.h"

#include <QLocale>

#include <cstdint>
#include <limits>

int truncatedToInt(double value) {
    using Limits = std::numeric_limits<int>;
    if (value >= double(Limits::max()))
        return Limits::max();
    if (value <= double(Limits::min()))
        return Limits::min();
    return value == value ? int(value) : 0; // NOLINT(misc-redundant-expression): not a number
}

// Written so that what is not a number fails every comparison.
bool canBeCut(double start, double end) {
    constexpr double limit = std::numeric_limits<int>::max();
    return end > start && end > 0.0 && end < limit && end - start < limit;
}

int secondOfDay(double start, const QDateTime* videoStart) {
    std::uint32_t seconds = std::uint32_t(truncatedToInt(start));
    if (videoStart)
        seconds += videoStart->toTime_t();
    return std::int32_t(seconds) % 86400;
}

QString overlayFilter(const QDate& date, int secondOfDay) {
    // The backslashes are the filter's: they keep the colons from ending an option.
    return QStringLiteral(R"(drawtext=fontfile=DejaVuSansMono.ttf:text='%1 %{pts\:hms\:%2}')"
                          ":x=10:y=10:fontcolor=white:box=1:boxborderw=3:boxcolor=0x00000000@1")
        .arg(QLocale::c().toString(date, QStringLiteral("ddd MMM d yyyy")))
        .arg(secondOfDay);
}
