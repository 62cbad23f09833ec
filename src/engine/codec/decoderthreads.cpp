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

// A codec stands here when the tests have shown that its undamaged, progressive streams give the
// same pictures, completed by the same packets, at every thread count. Interlaced streams do not
// (MPEG-4 Part 2 at any count, H.264 where a field lacks its pair), nor do damaged ones: see
// FrameThreadedDecoder for how these are kept exact.
//
// Not here: MJPEG, MPEG-4's Microsoft variants, FLV1 and raw video, whose decoders have no threads;
// and everything that nobody has tried.
DecoderThreading threadingOf(AVCodecID codec) {
    switch (codec) {
    case AV_CODEC_ID_H264:
    case AV_CODEC_ID_HEVC:
    case AV_CODEC_ID_MPEG4:
    case AV_CODEC_ID_VP8:
    case AV_CODEC_ID_VP9:
        return DecoderThreading::Frame;
    case AV_CODEC_ID_MPEG1VIDEO:
    case AV_CODEC_ID_MPEG2VIDEO:
    case AV_CODEC_ID_FFV1:
    case AV_CODEC_ID_AV1: // its decoder threads by itself; told to have no delay, inside a picture
        return DecoderThreading::Slice;
    default:
        return DecoderThreading::One;
    }
}

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
    DecoderThreading threading = threadingOf(context.codec_id);
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
