// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipcutter.h"
#include "selectionoptions.h"

/// What a call takes of one recording's clips, whatever those of other recordings are.
class RecordingSelection {
public:
    explicit RecordingSelection(const SelectionOptions& options);

    /// As of `ClipCutter`.
    void addPicture(double time, MotionScore motion);

    /// What is taken of a clip: itself, or its pieces, but for those that are too short.
    QVector<DetectedClip> of(const DetectedClip& clip);

    int shortOnes() const { return leftOut; } ///< clips and pieces that were too short

private:
    std::optional<ClipCutter> cutter; ///< where clips are cut
    double shortest;
    int leftOut = 0;
};
