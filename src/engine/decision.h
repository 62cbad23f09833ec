// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionfindings.h"

/// Decides on the motion values of one recording, picture by picture, and tells what is found. The
/// same code and the same calls whether the values are measured at the moment or were kept.
class Decision {
public:
    /// Tells of the stream; `firstPicture` is that of `measurement.firstTime`. All must
    /// outlive the decision.
    Decision(const SegmentationOptions& options, const Measurement& measurement,
             ClipPicturePointer firstPicture, DetectionFindings& findings);

    /// The next picture: its motion and its time in seconds as the stream counts them.
    void add(MotionScore motion, double time, ClipPicturePointer picture);

    /// There is no further picture.
    void finish();

    const MotionSeries& series() const { return segmenter.motionSeries(); }

private:
    DetectionFindings& findings;
    ClipSegmenter segmenter;
    double origin;
    qint64 number;
};
