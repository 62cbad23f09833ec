// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunkplan.h"

#include "decoderthreads.h"
#include "framebudget.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>

namespace {

enum class Gain {
    None,    ///< never tried, or, as MPEG-2, faster with threads that share a picture
    Intra,   ///< a picture needs no other: a decoder holds next to nothing
    Single,  ///< decoders that work on one picture at a time
    Ordinary ///< decoders with frame threads, which pictures of ordinary size leave waiting
};

Gain gainOf(AVCodecID codec) {
    switch (codec) {
    case AV_CODEC_ID_MJPEG:
    case AV_CODEC_ID_HUFFYUV:
    case AV_CODEC_ID_FFVHUFF:
    case AV_CODEC_ID_UTVIDEO:
    case AV_CODEC_ID_MAGICYUV:
    case AV_CODEC_ID_PRORES:
    case AV_CODEC_ID_DNXHD:
    case AV_CODEC_ID_DVVIDEO:
    case AV_CODEC_ID_JPEG2000:
    case AV_CODEC_ID_FFV1:
        return Gain::Intra;
    case AV_CODEC_ID_FLV1:
    case AV_CODEC_ID_H263:
    case AV_CODEC_ID_MSMPEG4V1:
    case AV_CODEC_ID_MSMPEG4V2:
    case AV_CODEC_ID_MSMPEG4V3:
    case AV_CODEC_ID_WMV1:
    case AV_CODEC_ID_WMV2:
    case AV_CODEC_ID_AV1:
        return Gain::Single;
    case AV_CODEC_ID_MPEG4:
    case AV_CODEC_ID_H264:
    case AV_CODEC_ID_HEVC:
    case AV_CODEC_ID_VP8:
    case AV_CODEC_ID_VP9:
        return Gain::Ordinary;
    default:
        return Gain::None;
    }
}

bool areWorthIt(Gain gain, const AVCodecParameters& parameters) {
    constexpr qint64 mostPixels = 2560 * 1600;
    const qint64 pixels = qint64(parameters.width) * parameters.height;
    const qint64 bytes = pictureBytes(parameters.format, parameters.width, parameters.height);
    const bool areSmall = bytes > 0 && bytes <= largestKeptPicture;
    return gain != Gain::None && areSmall && (gain != Gain::Ordinary || pixels <= mostPixels);
}

/// Each decoder has its own pictures: those that it refers to and those it puts in order, with what
/// it keeps beside them, and the first and the last of chunks that wait.
int mostWorkers(Gain gain, const AVCodecParameters& parameters) {
    const qint64 pictures = gain == Gain::Intra ? 8 : 24;
    const qint64 bytes = pictureBytes(parameters.format, parameters.width, parameters.height);
    return int(std::min<qint64>(mostFrameBytes / (pictures * bytes), mostDecoderThreads));
}

} // namespace

// codec                     | pictures         | threads   | decoded
// each picture alone        | up to 32 MB      | 2 or more | in chunks of 8, one for each thread
// one picture at a time     | up to 32 MB      | 2 or more | in chunks of 48, the same
// MPEG-4, H.264, HEVC, VP8/9| up to 2560x1600  | 2 or more | the same
// the same                  | larger           | any       | with frame threads: a second decoder
//                           |                  |           | needs as much memory again and both
//                           |                  |           | wait for it
// any other, any            | any              | any       | as the decoder does it
//
// Packets take 16 MB and as much again for each thread, pictures what `FrameBudget` allows.
ChunkPlan planChunks(const AVCodecParameters& parameters, int threads) {
    constexpr qint64 share = 16 * 1024 * 1024;
    const Gain gain = gainOf(parameters.codec_id);
    if (threads < 2 || !areWorthIt(gain, parameters))
        return {};
    ChunkPlan plan;
    plan.workers = std::min(threads, mostWorkers(gain, parameters));
    if (plan.workers < 2)
        return {};
    plan.fewestPackets = gain == Gain::Intra ? 8 : 48;
    plan.fewestOpen = gain == Gain::Intra ? 8 : 100;
    plan.enoughBytes = share / 4;
    plan.mostPackets = 400;
    plan.mostBytes = share;
    plan.bytesInHand = share * (plan.workers + 1);
    return plan;
}
