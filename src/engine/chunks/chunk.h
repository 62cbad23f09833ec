// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellpicture.h"
#include "decodedframe.h"
#include "framebudget.h"
#include "libavpointers.h"
#include "picturecomparison.h"
#include "picturekeeper.h"

#include <atomic>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

/// What all chunks of one recording share.
struct ChunkStream {
    ChunkStream(const AVCodecParameters& parameters, FrameBudget& memory);

    ParametersPointer parameters; ///< null without memory
    AVRational timeBase{1, 25};
    PacketPointer firstPacket;        ///< of the stream; set before the first chunk is decoded
    FrameBudget& memory;              ///< outlives the stream
    std::atomic<qint64> keptBytes{0}; ///< of all chunks that were let go and are there
};

/// A picture of a chunk, once it has been compared and let go.
struct ChunkResult {
    int fed = -1; ///< place of the packet it came with among those decoded; -1: of none
    std::optional<MotionScore> motion; ///< compared with the picture before it in the chunk
    CellPicturePointer cells = {};     ///< null if nobody wants them, or there are none
};

/// The packets from one access point of a recording to a later one, and what a decoder makes of
/// them that has them alone.
struct Chunk {
    explicit Chunk(std::shared_ptr<ChunkStream> stream)
        : stream(std::move(stream)) {}
    ~Chunk();
    Chunk(const Chunk&) = delete;
    Chunk& operator=(const Chunk&) = delete;

    void add(NumberedPacket packet);

    /// Nothing but its pictures needs it any more, of which the first `handedOut` are handed out.
    /// Whoever holds one keeps its packets alive.
    void letGo(int handedOut);

    /// Those that a decoder takes which begins here, in order: its own but for the leading ones,
    /// then the tail.
    std::vector<const AVPacket*> decodedPackets() const;

    /// How many pictures are the chunk's own, if each packet gives one.
    int expectedPictures() const;

    /// The number of its first picture in the recording, if each packet gives one.
    qint64 firstPicture() const;

    std::shared_ptr<ChunkStream> stream;
    qint64 index = 0; ///< among the chunks of the recording
    std::deque<NumberedPacket> packets;
    int leading = 0; ///< packets behind the first one that are decoded with the chunk before
    std::vector<PacketPointer> tail; ///< the next chunk's first packet and its leading ones
    qint64 bytes = 0;                ///< of `packets`
    bool isLast = false;             ///< the stream ends with it

    // What decoding it gives.
    bool hasMismatch = false;     ///< one decoder that never stopped may give something else
    bool isDamaged = false;       ///< of a kind that several threads would stumble over, too
    int delay = 0;                ///< pictures that the decoder holds back to put them in order
    double headerFrameRate = 0.0; ///< as `frameRateOf` says at its first picture
    int width = 0;                ///< pixels, of all its pictures
    int height = 0;
    std::vector<ChunkResult> results;
    FramePointer first; ///< its first picture, and its last one; null if there is none
    std::shared_ptr<const DecodedFrame> last;
    KeptPictures kept;

private:
    bool isLetGo = false;
};

/// Whether two pictures have one size and format.
bool areAlike(const AVFrame& a, const AVFrame& b);

using ChunkPointer = std::shared_ptr<Chunk>;
