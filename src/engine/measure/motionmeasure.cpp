// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionmeasure.h"

#include "motionseries.h"

MotionMeasure::MotionMeasure(const MeasureOptions& options, qint64 firstNumber)
    : pictures(options)
    , skip(options.skip)
    , skipCounter(int(skippedFrom(firstNumber + 1, options.skip))) {}

MotionScore MotionMeasure::measure(const DecodedFrame& previous, const DecodedFrame& current) {
    --skipCounter;
    if (!pictures.prepare(current.width(), current.height()))
        skipCounter = 0;
    else if (skipCounter < 0)
        keep(pictures.compare(previous, current));
    return motion;
}

MotionScore MotionMeasure::take(std::optional<MotionScore> difference, int width, int height) {
    --skipCounter;
    pictures.prepare(width, height);
    if (skipCounter < 0)
        keep(difference);
    return motion;
}

void MotionMeasure::keep(std::optional<MotionScore> difference) {
    skipCounter = difference ? skip : 0;
    motion = difference.value_or(motion);
}
