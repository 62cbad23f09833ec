// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

extern "C" {
#include <libavutil/frame.h>
}

// What differs between the versions of the media libraries that Kestrova is built with. No other
// file asks for a version.

/// Whether the picture is made of two fields.
#ifdef AV_FRAME_FLAG_INTERLACED
inline bool isInterlaced(const AVFrame& picture) {
    return (picture.flags & AV_FRAME_FLAG_INTERLACED) != 0;
}
#else
inline bool isInterlaced(const AVFrame& picture) {
    return picture.interlaced_frame != 0;
}
#endif
