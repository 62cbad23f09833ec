// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "likelybycells.h"

#include <utility>

LikelyByCells::LikelyByCells(MotionThreshold threshold, int skip, RegionOfInterest region,
                             const CellOptions& options)
    : likely(threshold, skip)
    , skip(skip)
    , region(std::move(region))
    , options(options) {}

void LikelyByCells::begin(qint64 first) {
    likely.begin(first);
    number = first;
    comparison = CellComparison();
    scores.reset();
    score = MotionScore();
}

void LikelyByCells::takeCells(const DecodedFrame& picture, const CellPicturePointer& cells) {
    const bool isSkipped = skippedFrom(number++, skip) > 0;
    if (isSkipped || !cells)
        return;
    if (!scores)
        scores.emplace(region, QSize(picture.width(), picture.height()), options);
    score = scores->add(picture.time, comparison.add(picture.time, cells));
}

void LikelyByCells::take(int place, const Picture& previous, const Picture& current,
                         std::optional<MotionScore>) {
    likely.take(place, previous, current, score);
}
