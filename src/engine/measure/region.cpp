// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "region.h"

#include <opencv2/core.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

struct Span {
    int begin;
    int length;
};

/// One axis of the rectangle: `first` and `last` (inclusive) scaled and cut to 0 .. `limit`. The
/// length is 0 if nothing is left. In doubles, since a corner may lie anywhere.
Span scaledSpan(int first, int last, double scale, int limit) {
    const double unclamped = std::trunc(first * scale);
    const double extent = std::trunc((double(last) - first + 1.0) * scale);
    const double begin = std::max(unclamped, 0.0);
    const double end = std::min(unclamped + extent, double(limit));
    if (end - begin < 1.0)
        return {0, 0};
    return {int(begin), int(end - begin)};
}

/// `r` of a picture of size `space`, in one of `width` x `height` pixels.
cv::Rect scaledRectangle(const QRect& r, QSize space, int width, int height) {
    if (space.isEmpty())
        space = QSize(width, height);
    const Span x = scaledSpan(r.left(), r.right(), double(width) / space.width(), width);
    const Span y = scaledSpan(r.top(), r.bottom(), double(height) / space.height(), height);
    if (x.length == 0 || y.length == 0)
        return {};
    return {x.begin, y.begin, x.length, y.length};
}

void prepareMask(const QImage& mask, int width, int height, PreparedRegion& prepared) {
    prepared.maskMat = cv::Mat::zeros(height, width, CV_8UC1);
    const QImage scaled =
        mask.scaled(QSize(width, height), Qt::IgnoreAspectRatio, Qt::FastTransformation);
    if (scaled.isNull()) {
        if (!mask.isNull())
            qBadAlloc();
        return;
    }
    for (int y = 0; y < height; ++y) {
        std::uint8_t* row = prepared.maskMat.ptr(y);
        for (int x = 0; x < width; ++x) {
            if (qGreen(scaled.pixel(x, y)) == 0)
                continue;
            row[x] = 255;
            ++prepared.maskCount;
        }
    }
}

void becomeMask(int width, int height, PreparedRegion& prepared) {
    if (prepared.kind == RegionOfInterest::Kind::Mask)
        return;
    const bool isWhole = prepared.kind == RegionOfInterest::Kind::WholeFrame;
    prepared.maskMat = cv::Mat(height, width, CV_8UC1, cv::Scalar(isWhole ? 255 : 0));
    prepared.maskMat(prepared.roi).setTo(255);
    prepared.roi = {};
    prepared.kind = RegionOfInterest::Kind::Mask;
}

void exclude(const RegionOfInterest& region, int width, int height, PreparedRegion& prepared) {
    becomeMask(width, height, prepared);
    for (const QRect& rectangle : region.excluded)
        prepared.maskMat(scaledRectangle(rectangle, region.space, width, height)).setTo(0);
    prepared.maskCount = std::uint32_t(cv::countNonZero(prepared.maskMat));
}

} // namespace

bool PreparedRegion::isEmpty() const {
    switch (kind) {
    case RegionOfInterest::Kind::Rectangle:
        return roi.empty();
    case RegionOfInterest::Kind::Mask:
        return maskCount == 0;
    case RegionOfInterest::Kind::WholeFrame:
        break;
    }
    return false;
}

PreparedRegion prepareRegion(const RegionOfInterest& region, int width, int height) {
    PreparedRegion prepared;
    prepared.kind = region.kind;
    if (region.kind == RegionOfInterest::Kind::Rectangle)
        prepared.roi = scaledRectangle(region.rectangle, region.space, width, height);
    else if (region.kind == RegionOfInterest::Kind::Mask)
        prepareMask(region.mask, width, height, prepared);
    if (!region.excluded.isEmpty())
        exclude(region, width, height, prepared);
    return prepared;
}
