// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "segmentation.h"

#include <optional>

/// Makes one clip of those of a recording that overlap or lie close together.
///
/// Clips go in as they are found, one after another. What comes out begins with the first of those
/// that it holds, ends with the last, shows the strongest motion of all (of equals the first) and
/// is numbered anew from 0. A clip comes out as soon as no other can join it.
class ClipMerger {
public:
    /// `gap`: seconds, 0 or more, that may lie between two clips that become one; to the
    /// microsecond.
    explicit ClipMerger(double gap);

    /// Takes in the next clip; answers the one before it, if that is not joined by it.
    std::optional<DetectedClip> add(const DetectedClip& clip);

    /// Every clip still to come starts at `earliestStart` (seconds) or later; answers the last one
    /// taken in, if none of them can join it. Clips that come earlier all the same, since times ran
    /// backwards, stay clips of their own.
    std::optional<DetectedClip> passBy(double earliestStart);

    /// No clip is to come; answers the last one taken in, if it is still here.
    std::optional<DetectedClip> finish();

    /// The start of a clip that was taken in and has not come out yet.
    std::optional<double> waitingStart() const {
        return last ? std::optional<double>(last->start) : std::nullopt;
    }

private:
    bool isApart(double start) const;

    double gap;
    int found = 0; ///< clips that came out
    std::optional<DetectedClip> last;
};
