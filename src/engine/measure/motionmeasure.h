// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "decodedframe.h"
#include "lumaplane.h"
#include "region.h"

#include <opencv2/core/mat.hpp>

/// How the motion between two pictures is measured.
struct MeasureOptions {
    int thresholdValue = 35; ///< 0..255; a pixel that differs by this or less counts as unchanged
    int skip = 0;            ///< frames between two measurements, 0 or more
    RegionOfInterest region;
};

/// The motion value of each frame: the mean difference from the frame before it.
///
/// Value = mean over the picture or rectangle of the 8-bit differences of plane 0 that exceed
/// `thresholdValue`, the others counting as 0. With a free mask the mean is still taken over the
/// whole picture and then multiplied by (picture pixels / selected pixels), an integer quotient.
/// Nothing is allocated per frame. Throws nothing.
class MotionMeasure {
public:
    explicit MotionMeasure(const MeasureOptions& options);

    /// The value of `current`, whose predecessor in the stream is `previous`.
    ///
    /// A frame that is skipped keeps the value before it, and so does one that cannot be compared:
    /// its size differs from its predecessor's, or its plane 0 is unreadable. A measurement that
    /// could not be made is made up for on the next frame.
    float measure(const DecodedFrame& previous, const DecodedFrame& current);

private:
    void prepare(int newWidth, int newHeight);
    bool compare(const DecodedFrame& previous, const DecodedFrame& current);
    float meanDifference(const cv::Mat& previous, const cv::Mat& current) const;

    MeasureOptions options;
    PreparedRegion region;
    int width = 0; ///< the size that `region` is prepared for
    int height = 0;
    int skipCounter;
    float motion = 0.0F;
    LumaPlane previousPlane;
    LumaPlane currentPlane;
};
