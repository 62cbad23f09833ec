// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "picturedifference.h"

#include <QtGlobal>

/// The motion score of each frame: the difference from the frame before it, or, where that is not
/// measured, the score before.
class MotionMeasure {
public:
    /// `firstNumber` is that of the first picture that is compared with, as the recording counts
    /// them: which pictures are skipped goes by that.
    explicit MotionMeasure(const MeasureOptions& options, qint64 firstNumber = 0);

    /// The score of `current`, whose predecessor in the stream is `previous`.
    ///
    /// A frame that is skipped keeps the score before it, and so does one that cannot be compared:
    /// its size differs from its predecessor's, or its plane 0 is unreadable. A measurement that
    /// could not be made is made up for on the next frame.
    MotionScore measure(const DecodedFrame& previous, const DecodedFrame& current);

    /// The same for a frame of `width` x `height` pixels that was compared elsewhere, with nothing
    /// if it could not be.
    MotionScore take(std::optional<MotionScore> difference, int width, int height);

private:
    void keep(std::optional<MotionScore> difference);

    PictureDifference pictures;
    int skip;
    int skipCounter;
    MotionScore motion;
};
