// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "framepacing.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>

FramePacing::FramePacing(const AVCodecContext& context)
    : isPaced(context.codec_id == AV_CODEC_ID_HEVC) {}

std::optional<qint64> FramePacing::placeOf(qint64 completedBy) {
    // More pictures no HEVC decoder holds back (ITU-T H.265, A.4.2).
    constexpr qint64 mostHeldBack = 16;
    const qint64 place = isPaced ? std::max(completedBy, last + 1) : completedBy;
    if (place <= last || place - completedBy >= mostHeldBack)
        return std::nullopt;
    last = place;
    return place;
}
