// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

extern "C" {
#include <libavutil/pixfmt.h>
#include <libswscale/swscale.h>
}

#include <cstdint>

struct AVFrame;

/// Memory that a decoded picture is scaled into: one plane of packed pixels, stored top-down.
struct ScaleTarget {
    AVPixelFormat format;
    int width;          ///< pixels, 1 or more
    int height;         ///< pixels, 1 or more
    std::uint8_t* rows; ///< the scaler may write all of each row's `stride` bytes
    int stride;         ///< bytes
    int filter;         ///< SWS_BILINEAR and the like
};

/// False, with the target untouched, if the picture has no pixels or some that the scaler does not
/// know.
bool scalePicture(const AVFrame& picture, const ScaleTarget& target);
