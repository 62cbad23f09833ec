// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codecaccesspoints.h"

extern "C" {
#include <libavcodec/codec_id.h>
}

#include <vector>

/// How a codec may use several threads without changing what comes out of it.
enum class DecoderThreading {
    One,   ///< on the calling thread only
    Slice, ///< the parts of one picture at a time; a frame comes out with its packet as before
    Frame  ///< several pictures at a time; frames come out later than on one thread
};

/// Whether decoding chunks of a recording side by side pays.
enum class ChunkGain {
    None,    ///< never tried, or slower than threads that share a picture
    Intra,   ///< a picture needs no other: a decoder holds next to nothing
    Single,  ///< decoders that work on one picture at a time
    Ordinary ///< decoders with frame threads, which pictures of ordinary size leave waiting
};

/// What is known of one codec. The tests have shown it for undamaged, progressive streams: the same
/// frames, completed by the same packets, however they are decoded.
struct CodecTraits {
    AVCodecID codec = AV_CODEC_ID_NONE;
    DecoderThreading threading = DecoderThreading::One;
    ChunkGain chunks = ChunkGain::None;       ///< none without random access points
    AccessPointsMaker accessPoints = nullptr; ///< null: nobody knows its random access points
};

/// One for each codec that was tried.
const std::vector<CodecTraits>& codecTable();

/// Of any codec; of one that nobody has tried: one thread, no chunks, no random access points.
CodecTraits traitsOf(AVCodecID codec);
