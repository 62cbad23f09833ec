// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chunk.h"
#include "codeccontext.h"
#include "framepacing.h"
#include "picturework.h"

/// Gives a decoder that begins in the middle of a stream what only the stream's first packet tells,
/// such as which encoder's mistakes to make up for.
void prime(AVCodecContext& context, const AVPacket& firstPacket);

/// A decoder on one thread that decodes chunks, each as if it were all there is, and compares
/// their pictures.
///
/// One that has never stopped gives the same where every packet does what is expected of it. At the
/// first sign of anything else the chunk is left as a mismatch.
class ChunkDecoder {
public:
    /// `context`: for one thread, newly opened, or null: one is opened then. `isInterrupted` is
    /// asked once per packet, and a chunk is left once it answers true. `reduce` and `keeper` may
    /// be null.
    ChunkDecoder(std::shared_ptr<ChunkStream> stream, CodecContextPointer context,
                 PictureComparison compare, PictureReduction reduce,
                 std::unique_ptr<PictureKeeper> keeper, std::function<bool()> isInterrupted);
    ~ChunkDecoder() = default;
    ChunkDecoder(const ChunkDecoder&) = delete;
    ChunkDecoder& operator=(const ChunkDecoder&) = delete;

    /// Fills in what decoding the chunk gives.
    void decode(Chunk& chunk);

    /// Gives `take` the pictures of a chunk that was decoded before, in order, with their places
    /// in it, for as long as it answers true.
    void decodeAgain(const Chunk& chunk,
                     const std::function<bool(int place, FramePointer frame)>& take);

private:
    bool open();
    bool prepare(const Chunk& chunk);
    void feedAll(Chunk& chunk);
    bool feed(Chunk& chunk, const AVPacket* packet, int place, FramePacing& pacing);
    void tick(const AVPacket* packet);
    bool take(Chunk& chunk, AVFramePointer picture, int place);
    void takeCells(ChunkResult& result, const DecodedFrame& record);
    void keepFirst(Chunk& chunk, const DecodedFrame& record);
    bool isDamaged(const AVFrame& picture) const;

    std::shared_ptr<ChunkStream> stream;
    CodecContextPointer context;
    PictureComparison compare;
    PictureReduction reduce;
    std::unique_ptr<PictureKeeper> keeper;
    std::function<bool()> isInterrupted;
    bool isNew = true;  ///< nothing has been decoded
    double time = 0.0;  ///< seconds, of the last picture, most likely
    double step = 0.04; ///< seconds, from the one before it
};
