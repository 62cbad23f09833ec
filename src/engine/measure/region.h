// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <QVector>

#include <opencv2/core/mat.hpp>

#include <cstdint>

/// Where a person wants motion to be looked for. The whole picture by default.
struct RegionOfInterest {
    enum class Kind { WholeFrame, Rectangle, Mask };

    Kind kind = Kind::WholeFrame;
    QRect rectangle; ///< in the coordinates of a picture of size `space`; used by Kind::Rectangle
    QSize space;     ///< empty: the pixels of the first pictures measured; for all rectangles
    QImage mask;     ///< green byte not 0 = selected; scaled to the picture; used by Kind::Mask

    /// Rectangles, in the coordinates of `rectangle`, in which nothing is looked for. Where there
    /// is one, be it outside the picture, the region is a mask, whatever its kind.
    QVector<QRect> excluded;
};

/// A region of interest made ready for pictures of one size.
struct PreparedRegion {
    RegionOfInterest::Kind kind = RegionOfInterest::Kind::WholeFrame;
    cv::Mat maskMat;             ///< height x width, CV_8UC1, 255 = selected (Kind::Mask only)
    std::uint32_t maskCount = 0; ///< number of selected pixels; 0 unless Kind::Mask
    cv::Rect roi;                ///< pixels; all 0 if nothing is left (Kind::Rectangle only)

    bool isEmpty() const; ///< whether no pixel is selected
};

/// Makes `region` ready for pictures of `width` x `height` pixels (both at least 1).
///
/// A rectangle is scaled by picture size / `space` with its corner and its size truncated, and cut
/// at the picture's edges. A mask is scaled to the picture by nearest neighbour. Rectangles are
/// excluded after that: a region with some is the mask of what it selects without them, with their
/// pixels cleared.
PreparedRegion prepareRegion(const RegionOfInterest& region, int width, int height);
