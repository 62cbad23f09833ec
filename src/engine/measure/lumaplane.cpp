// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "lumaplane.h"

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/imgutils.h>
}

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

cv::Mat LumaPlane::wrap(const DecodedFrame& record) {
    const int width = record.width();
    const int height = record.height();
    const int bytesPerRow = av_image_get_linesize(AVPixelFormat(record.frame->format), width, 0);
    if (!record.data() || width < 1 || height < 1 || bytesPerRow < 1)
        return {};
    if (bytesPerRow < width || record.stride() < width)
        return copyTopDown(record, std::min(bytesPerRow, std::abs(record.stride())));
    // OpenCV has no wrapper for read-only data; the measure only reads.
    return cv::Mat(height, width, CV_8UC1, const_cast<std::uint8_t*>(record.data()),
                   std::size_t(record.stride()));
}

cv::Mat LumaPlane::copyTopDown(const DecodedFrame& record, int bytesPerRow) {
    const int height = record.height();
    const int columns = std::min(bytesPerRow, record.width());
    const int missing = record.width() - columns;
    buffer.create(height, record.width(), CV_8UC1);
    for (int y = 0; y < height; ++y) {
        const std::uint8_t* row = record.data() + std::ptrdiff_t(y) * record.stride();
        std::memcpy(buffer.ptr(y), row, std::size_t(columns));
        std::memset(buffer.ptr(y) + columns, 0, std::size_t(missing));
    }
    return buffer;
}
