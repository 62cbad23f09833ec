// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunkplan.h"

#include "cellpicture.h"
#include "codectable.h"
#include "decoderthreads.h"
#include "framebudget.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>

namespace {

bool areWorthIt(ChunkGain gain, const AVCodecParameters& parameters) {
    constexpr qint64 mostPixels = 2560 * 1600;
    const qint64 pixels = qint64(parameters.width) * parameters.height;
    const qint64 bytes = pictureBytes(parameters.format, parameters.width, parameters.height);
    const bool areSmall = bytes > 0 && bytes <= largestKeptPicture;
    return gain != ChunkGain::None && areSmall &&
           (gain != ChunkGain::Ordinary || pixels <= mostPixels);
}

/// Each decoder has its own pictures: those that it refers to and those it puts in order, with what
/// it keeps beside them, and the first and the last of chunks that wait.
int mostWorkers(ChunkGain gain, const AVCodecParameters& parameters) {
    const qint64 pictures = gain == ChunkGain::Intra ? 8 : 24;
    const qint64 bytes = pictureBytes(parameters.format, parameters.width, parameters.height);
    return int(std::min<qint64>(mostFrameBytes / (pictures * bytes), mostDecoderThreads));
}

/// Pictures, as large as their cells are. Nobody knows how long groups of them are: those of most
/// encoders have 250, and one is in hand for each thread.
int mostReduced(int workers, const AVCodecParameters& parameters) {
    constexpr qint64 share = 8 * 1024 * 1024;
    const int cells = cellGridOf(parameters.width, parameters.height).count();
    return int(share * (workers + 1) / (cells * qint64(sizeof(CellPicture::levels[0]))));
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
// Packets take 16 MB and as much again for each thread, pictures what `FrameBudget` allows. Cells
// take half as much as packets, or what one chunk has of them.
ChunkPlan planChunks(const AVCodecParameters& parameters, int threads) {
    constexpr qint64 share = 16 * 1024 * 1024;
    const ChunkGain gain = traitsOf(parameters.codec_id).chunks;
    if (threads < 2 || !areWorthIt(gain, parameters))
        return {};
    ChunkPlan plan;
    plan.workers = std::min(threads, mostWorkers(gain, parameters));
    if (plan.workers < 2)
        return {};
    plan.fewestPackets = gain == ChunkGain::Intra ? 8 : 48;
    plan.fewestOpen = gain == ChunkGain::Intra ? 8 : 100;
    plan.enoughBytes = share / 4;
    plan.mostPackets = 400;
    plan.mostBytes = share;
    plan.bytesInHand = share * (plan.workers + 1);
    plan.cellsInHand = mostReduced(plan.workers, parameters);
    return plan;
}
