// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "picturedifference.h"

#include "differencesum.h"
#include "opencvfailure.h"

#include <cstdint>

namespace {

/// Formed as cv::mean forms it, the sum times the reciprocal of the count, and rounded to a float.
float mean(const cv::Mat& previous, const cv::Mat& current, int threshold, const cv::Mat& mask) {
    const std::uint64_t sum = differenceSum(previous, current, threshold, mask);
    return float(double(sum) * (1.0 / double(current.total())));
}

} // namespace

PictureDifference::PictureDifference(const MeasureOptions& options)
    : options(options) {}

bool PictureDifference::prepare(int newWidth, int newHeight) {
    const bool hasPixels = newWidth > 0 && newHeight > 0;
    if (!hasPixels || (newWidth == width && newHeight == height))
        return true;
    width = newWidth;
    height = newHeight;
    // A rectangle given in video pixels means those of the size that it was first used on.
    if (options.region.space.isEmpty())
        options.region.space = QSize(width, height);
    try {
        region = prepareRegion(options.region, width, height);
    } catch (const cv::Exception& exception) {
        noteFailure(exception);
        return false;
    }
    return true;
}

std::optional<MotionScore> PictureDifference::compare(const DecodedFrame& previous,
                                                      const DecodedFrame& current) {
    const bool isSameSize =
        previous.width() == current.width() && previous.height() == current.height();
    if (!prepare(current.width(), current.height()) || !isSameSize)
        return std::nullopt;
    try {
        const cv::Mat before = previousPlane.wrap(previous);
        const cv::Mat now = currentPlane.wrap(current);
        if (before.empty() || now.empty())
            return std::nullopt;
        return MotionScore{meanDifference(before, now)};
    } catch (const cv::Exception& exception) {
        noteFailure(exception);
        return std::nullopt;
    }
}

float PictureDifference::meanDifference(const cv::Mat& previous, const cv::Mat& current) const {
    if (region.kind == RegionOfInterest::Kind::Rectangle) {
        if (region.roi.empty())
            return 0.0F;
        return mean(previous(region.roi), current(region.roi), options.pixelThreshold, {});
    }
    const float value = mean(previous, current, options.pixelThreshold, region.maskMat);
    if (region.maskCount == 0)
        return value;
    // The whole quotient is meant: a region that covers 40 % of the picture counts double.
    const std::uint32_t weight = std::uint32_t(width) * std::uint32_t(height) / region.maskCount;
    return value * float(weight);
}
