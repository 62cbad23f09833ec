// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "decoderthreads.h"

#include "framebudget.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>

namespace {

/// Each of these threads has a picture in hand. Besides them there are those that the decoder
/// refers to, six in ordinary streams, with what it keeps about every one of their blocks, and a
/// few that have come out.
int mostFrameThreads(const AVCodecContext& context) {
    constexpr qint64 otherPictures = 10;
    const qint64 blocks = qint64(context.width) * context.height * 3 / 4;
    const qint64 bytes = pictureBytes(context.pix_fmt, context.width, context.height) + blocks;
    if (bytes < 1)
        return mostDecoderThreads;
    const qint64 room = mostFrameBytes / bytes - otherPictures;
    return int(std::clamp<qint64>(room, 1, mostDecoderThreads));
}

} // namespace

DecoderThreading setUpThreads(AVCodecContext& context, int threads) {
    DecoderThreading threading = traitsOf(context.codec_id).threading;
    const bool isAcrossPictures = threading == DecoderThreading::Frame;
    threads = std::min(threads, isAcrossPictures ? mostFrameThreads(context) : mostDecoderThreads);
    if (threads <= 1)
        threading = DecoderThreading::One;
    context.thread_count = threading == DecoderThreading::One ? 1 : threads;
    context.thread_type = threading == DecoderThreading::Frame ? FF_THREAD_FRAME : FF_THREAD_SLICE;
    if (context.codec_id == AV_CODEC_ID_AV1)
        context.flags |= AV_CODEC_FLAG_LOW_DELAY;
    return threading;
}
