// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellmeasure.h"
#include "detectionprogress.h"
#include "framestream.h"
#include "measurement.h"
#include "measuringend.h"
#include "motionmeasure.h"

#include <functional>
#include <optional>

/// A frame, and the one that is compared with it; neither is there where a file ends before.
struct FramePair {
    Frame previous;
    Frame current;
};

/// How motion is measured.
struct Measures {
    MotionMeasure mean;
    std::optional<CellMeasure> cells; ///< none: nobody wants maps
};

/// What has moved in a frame.
struct FrameMotion {
    MotionScore mean;
    const CellMap* map = nullptr; ///< null if nobody wants it; valid for as long as one looks at it
};

/// Takes the motion of a frame, and the frame.
using MotionSink = std::function<void(const FrameMotion& motion, const Frame& frame)>;

/// Appends values, times and maps to what is measured, which must outlive the sink.
MotionSink sinkOf(Measurement& measured);

/// Measures frames one after the other, from `pair` on with those that follow it, and tells
/// `progress` of each that is read. The cells' measure has seen the first of the pair.
MeasuringEnd measure(FramePair pair, FrameStream& frames, Measures measures,
                     DetectionProgress& progress, const MotionSink& sink);

/// Whether the region selects no pixel of this frame, which may have none.
bool selectsNothing(const RegionOfInterest& region, const Frame& frame);
