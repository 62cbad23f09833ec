// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionprogress.h"
#include "framestream.h"
#include "measurement.h"
#include "measuringend.h"
#include "motionmeasure.h"

#include <functional>

/// A frame, and the one that is compared with it; neither is there where a file ends before.
struct FramePair {
    Frame previous;
    Frame current;
};

/// Takes the motion of a frame, and the frame.
using MotionSink = std::function<void(MotionScore motion, const Frame& frame)>;

/// Appends values and times to a series, which must outlive the sink.
MotionSink sinkOf(MotionSeries& series);

/// Measures frames one after the other, from `pair` on with those that follow it, and tells
/// `progress` of each that is read.
MeasuringEnd measure(FramePair pair, FrameStream& frames, MotionMeasure measure,
                     DetectionProgress& progress, const MotionSink& sink);

/// Whether the region selects no pixel of this frame, which may have none.
bool selectsNothing(const RegionOfInterest& region, const Frame& frame);
