// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "likelybycells.h"

#include "frame.h"

#include <utility>

LikelyByCells::LikelyByCells(MotionThreshold threshold, int skip, RegionOfInterest region,
                             const CellOptions& options)
    : likely(threshold, skip)
    , skip(skip)
    , region(std::move(region))
    , options(options) {}

void LikelyByCells::begin(qint64 first) {
    likely.begin(first);
    measure.emplace(skip, first);
    scores.reset();
    score = MotionScore();
}

void LikelyByCells::takeCells(const DecodedFrame& picture, const CellPicturePointer& cells) {
    Frame frame;
    frame.time = picture.time;
    frame.cells = cells;
    if (!scores)
        scores.emplace(region, QSize(picture.width(), picture.height()), options);
    score = scores->add(picture.time, measure->add(frame));
}

void LikelyByCells::take(int place, const Picture& previous, const Picture& current,
                         std::optional<MotionScore>) {
    likely.take(place, previous, current, score);
}
