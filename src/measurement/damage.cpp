// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "damage.h"

#include <algorithm>

namespace {

constexpr double leastSeconds = 2.0;
constexpr double leastShare = 0.05;
constexpr double leastPictures = 20.0; // more than decoders hold back to put them in order
constexpr double leastGaps = 2.0;

/// How long a recording is, and how its pictures lie in it; all in seconds.
struct Extent {
    double length = 0.0;
    double interval = 0.0;   ///< from one picture to the next, on average
    double longestGap = 0.0; ///< that is no hole
    double holes = 0.0;      ///< all together
};

Extent extentOf(const MeasuredSpan& span, const MotionSeries& series, bool isDamaged) {
    Extent extent;
    double farthest = span.begin;
    for (const double time : series.times)
        farthest = std::max(farthest, time);
    extent.length = farthest - span.origin;
    extent.interval = (farthest - span.begin) / std::max(int(series.times.size()), 1);
    const double longest = std::max(leastSeconds, leastPictures * extent.interval);
    farthest = span.begin;
    for (const double time : series.times) {
        const double gap = time - farthest;
        if (isDamaged && gap > longest)
            extent.holes += gap - extent.interval;
        else
            extent.longestGap = std::max(extent.longestGap, gap);
        farthest = std::max(farthest, time);
    }
    return extent;
}

} // namespace

Damage damageOf(const MeasuredSpan& span, const MotionSeries& series, const ReadingSigns& signs) {
    Damage damage;
    damage.packets = signs.undecodedPackets;
    const Extent extent = extentOf(span, series, signs.hasErrors || signs.undecodedPackets > 0);
    const double read = extent.length - extent.holes;
    const double tolerated =
        std::max({leastSeconds, leastShare * signs.promised, leastPictures * extent.interval,
                  leastGaps * extent.longestGap});
    if (signs.promised - read > tolerated) {
        damage.promised = signs.promised;
        damage.read = read;
    }
    return damage;
}
