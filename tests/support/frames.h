// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "decodedframe.h"

#include <QImage>
#include <QList>
#include <QString>

#include <opencv2/core/mat.hpp>

extern "C" {
#include <libavutil/pixfmt.h>
}

#include <cstdint>
#include <memory>
#include <vector>

/// Pictures as the engine sees them, made and read by tests.
namespace media {

/// A picture whose plane 0 is a buffer of exactly |stride| * height bytes, so that a sanitizer sees
/// every read beside it. A negative stride stores it bottom-up.
class HandMadeFrame {
public:
    HandMadeFrame(AVPixelFormat format, int width, int height, int stride);

    /// Any single-channel 8-bit picture, as `format` GRAY8; bottom-up on demand.
    explicit HandMadeFrame(const cv::Mat& picture, bool bottomUp = false);

    /// First byte of row `y`, the top row being 0.
    std::uint8_t* row(int y);

    DecodedFrame& record() { return *frame; }
    operator const DecodedFrame&() const { return *frame; }

private:
    std::unique_ptr<std::uint8_t[]> bytes;
    FramePointer frame;
};

/// A picture in buffers of the media library's own, all of it 0.
FramePointer libraryFrame(AVPixelFormat format, int width, int height);

/// Picture `number` (0 to 255) of a recording whose pictures can be told apart after lossy coding:
/// its bits as light and dark blocks, four in a row.
QImage numberedPicture(int number, const QSize& size = QSize(128, 96));

/// The pictures `first`, `first` + 1, ...
QList<QImage> numberedPictures(int count, int first = 0, const QSize& size = QSize(128, 96));

/// The number that a decoded picture shows.
int numberOf(const DecodedFrame& record);

} // namespace media
