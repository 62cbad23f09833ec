// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pictureclock.h"

namespace {

// What a header says beyond these is no frame rate, but a clock's.
constexpr double lowestFrameRate = 0.01;
constexpr double highestFrameRate = 1000.0;

} // namespace

PictureClock::PictureClock(const TimeOptions& options)
    : options(options) {}

std::optional<double> PictureClock::next(const StoredTime& stored) {
    const bool isUseless = options.mustBeUsable && stored.isMissing;
    if (count == 0 && options.frameRate == 0.0 && isUseless) {
        const double rate = stored.headerFrameRate;
        if (!(rate >= lowestFrameRate && rate <= highestFrameRate))
            return std::nullopt;
        options.frameRate = rate;
    }
    double time = isUseless ? last : stored.seconds;
    if (options.frameRate > 0.0)
        time = double(count) / options.frameRate;
    if (count == 0)
        first = time;
    hasMoved = hasMoved || time != first;
    ++count;
    last = time;
    return time;
}

bool PictureClock::isRunning() const {
    return hasMoved || !options.mustBeUsable;
}
