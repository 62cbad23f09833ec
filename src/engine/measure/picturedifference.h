// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "decodedframe.h"
#include "lumaplane.h"
#include "measureoptions.h"
#include "motionscore.h"

#include <opencv2/core/mat.hpp>

#include <optional>

/// Compares two pictures: the mean of what differs between them inside the region of interest.
///
/// Value = mean over the picture or rectangle of the 8-bit differences of plane 0 that exceed
/// `pixelThreshold`, the others counting as 0. With a free mask the mean is still taken over the
/// whole picture and then multiplied by (picture pixels / selected pixels), an integer quotient.
/// Nothing is allocated per picture. Throws nothing but for want of memory.
class PictureDifference {
public:
    explicit PictureDifference(const MeasureOptions& options);

    /// Makes the region ready for pictures of this size; the first one counts where the region is
    /// drawn on pixels. Nothing happens for a size without pixels. False if it cannot be done.
    bool prepare(int width, int height);

    /// Nothing if the two cannot be compared: their sizes differ, or a plane 0 is unreadable.
    std::optional<MotionScore> compare(const DecodedFrame& previous, const DecodedFrame& current);

private:
    float meanDifference(const cv::Mat& previous, const cv::Mat& current) const;

    MeasureOptions options;
    PreparedRegion region;
    int width = 0; ///< the size that `region` is prepared for
    int height = 0;
    LumaPlane previousPlane;
    LumaPlane currentPlane;
};
