// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionmeasure.h"

#include "differencesum.h"
#include "logging.h"

#include <opencv2/core.hpp>

#include <QtGlobal>

#include <cstdint>

namespace {

/// Formed as cv::mean forms it, the sum times the reciprocal of the count, and rounded to a float.
float mean(const cv::Mat& previous, const cv::Mat& current, int threshold, const cv::Mat& mask) {
    const std::uint64_t sum = differenceSum(previous, current, threshold, mask);
    return float(double(sum) * (1.0 / double(current.total())));
}

} // namespace

MotionMeasure::MotionMeasure(const MeasureOptions& options)
    : options(options)
    , skipCounter(options.skip) {}

float MotionMeasure::measure(const DecodedFrame& previous, const DecodedFrame& current) {
    --skipCounter;
    const bool hasPixels = current.width() > 0 && current.height() > 0;
    try {
        if (hasPixels && (current.width() != width || current.height() != height))
            prepare(current.width(), current.height());
        if (skipCounter < 0)
            skipCounter = compare(previous, current) ? options.skip : 0;
    } catch (const cv::Exception& exception) {
        if (exception.code == cv::Error::StsNoMem)
            qBadAlloc();
        qCWarning(engineLog, "a frame could not be measured: %s", exception.what());
        skipCounter = 0;
    }
    return motion;
}

void MotionMeasure::prepare(int newWidth, int newHeight) {
    width = newWidth;
    height = newHeight;
    // A rectangle given in video pixels means those of the size that it was first used on.
    if (options.region.space.isEmpty())
        options.region.space = QSize(width, height);
    region = prepareRegion(options.region, width, height);
}

bool MotionMeasure::compare(const DecodedFrame& previous, const DecodedFrame& current) {
    if (previous.width() != current.width() || previous.height() != current.height())
        return false;
    const cv::Mat before = previousPlane.wrap(previous);
    const cv::Mat now = currentPlane.wrap(current);
    if (before.empty() || now.empty())
        return false;
    motion = meanDifference(before, now);
    return true;
}

float MotionMeasure::meanDifference(const cv::Mat& previous, const cv::Mat& current) const {
    if (region.kind == RegionOfInterest::Kind::Rectangle) {
        if (region.roi.empty())
            return 0.0F;
        return mean(previous(region.roi), current(region.roi), options.thresholdValue, {});
    }
    const float value = mean(previous, current, options.thresholdValue, region.maskMat);
    if (region.maskCount == 0)
        return value;
    // The whole quotient is meant: a region that covers 40 % of the picture counts double.
    const std::uint32_t weight = std::uint32_t(width) * std::uint32_t(height) / region.maskCount;
    return value * float(weight);
}
