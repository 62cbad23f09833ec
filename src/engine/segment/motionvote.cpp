// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionvote.h"

#include <algorithm>

namespace {

constexpr int fewestEntries = 4;

}

MotionVote::MotionVote(const MotionSeries& series, double window, MotionThreshold threshold,
                       int fewestCounted)
    : series(series)
    , window(window)
    , threshold(threshold)
    , fewestCounted(fewestCounted) {}

void MotionVote::advance() {
    const QVector<double>& times = series.times;
    const int size = times.size();
    if (size < 2)
        return;
    const int newest = size - 1;
    if (times[newest] < times[newest - 1])
        backStep = newest;
    // Within a run of rising times the entries that drop out are the oldest. A step back inside
    // the run, or one that reaches below it, allows no such conclusion.
    if (backStep > first) {
        recount();
        return;
    }
    if (isHit(newest - 1))
        ++hits;
    while (newest - first > fewestCounted && !isCounted(first)) {
        if (isHit(first))
            --hits;
        ++first;
    }
}

int MotionVote::forgetOld() {
    const int count = std::max(std::min(first, series.times.size() - fewestEntries), 0);
    first -= count;
    backStep = std::max(backStep - count, 0);
    return count;
}

bool MotionVote::isWon() const {
    const int size = series.times.size();
    if (size < fewestEntries || first + 1 >= size)
        return false;
    const int counted = size - 1 - first;
    return float(hits) / float(counted) >= 0.5F;
}

bool MotionVote::isCounted(int entry) const {
    return series.times[entry] + window > series.times.last();
}

bool MotionVote::isHit(int entry) const {
    return threshold.isReachedBy(series.scores[entry]);
}

void MotionVote::recount() {
    hits = 0;
    const int newest = series.times.size() - 1;
    first = newest;
    while (first > 0 && (newest - first < fewestCounted || isCounted(first - 1))) {
        --first;
        if (isHit(first))
            ++hits;
    }
}
