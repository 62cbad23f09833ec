// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "measurement.h"
#include "segmentation.h"

/// One frame after the first, measured or held.
struct FrameReport {
    qint64 number = 0; ///< number of the picture; the first one decoded, never reported, is 0
    double time = 0.0; ///< seconds from the first picture
    MotionScore motion;

    /// No clip still to be found starts before this (ClipSegmenter::earliestStart).
    double earliestStart = 0.0;
};

/// What a detection finds: told on the thread that runs it.
class DetectionFindings {
public:
    virtual ~DetectionFindings() = default;

    /// The file is open and has its first two pictures.
    virtual void opened(const StreamFacts& stream) = 0;

    virtual void frameProcessed(const FrameReport& frame) = 0;

    virtual void clipFound(const DetectedClip& clip) = 0;
};
