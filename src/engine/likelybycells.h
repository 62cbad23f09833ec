// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellmeasure.h"
#include "cellscores.h"
#include "likelysnapshots.h"

#include <optional>

/// Keeps those pictures of a chunk that most likely become snapshots where cells decide.
///
/// Their values are those that the chunk has for itself: but for its first second they are what one
/// decides on, as long as its packets tell the times of its pictures.
class LikelyByCells : public PictureKeeper {
public:
    /// The threshold and `skip` are those of `LikelySnapshots`, the others of `CellScores`.
    LikelyByCells(MotionThreshold threshold, int skip, RegionOfInterest region,
                  const CellOptions& options);

    void begin(qint64 number) override;
    void takeCells(const DecodedFrame& picture, const CellPicturePointer& cells) override;
    void take(int place, const Picture& previous, const Picture& current,
              std::optional<MotionScore> motion) override;
    KeptPictures end() override { return likely.end(); }

    /// Keeps none: the chunk knows nothing of what lies before its first picture.
    void takeFirst(qint64, const DecodedFrame&, const DecodedFrame&, std::optional<MotionScore>,
                   KeptPictures&) const override {}

private:
    LikelySnapshots likely;
    int skip;
    RegionOfInterest region;
    CellOptions options;
    std::optional<CellMeasure> measure; ///< of the chunk; none before the first one
    std::optional<CellScores> scores;
    MotionScore score;
};
