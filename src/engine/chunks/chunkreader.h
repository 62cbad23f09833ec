// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chunkcutter.h"
#include "chunkorder.h"
#include "chunkworkers.h"
#include "framedecoder.h"

/// Gives a recording's frames, decoded in chunks side by side, as one decoder gives them.
///
/// What is read and not yet handed out is bounded by its bytes and by those of its cells. Falls
/// back at a mismatch.
class ChunkReader : public FrameDecoder {
public:
    /// `reader` must be open, at its start. `context`, for one thread, is newly opened for its
    /// stream. `reader` and `memory` must outlive this object and all its frames.
    ChunkReader(PacketReader& reader, FrameBudget& memory, CodecContextPointer context,
                const ChunkPlan& plan, const PictureWork& work);

    /// Its frames have no picture, but their places in their chunks.
    Result next() override;

    Restart takeRestart() override;

private:
    bool isNextCertain() const;
    void begin();
    void fill();
    bool canReadOn() const;
    bool canDecodeOn() const;
    bool handOnNext();
    void letGoOfBefore(Chunk& next);
    void readMarksUpTo(qint64 number);
    void makeFrames(const ChunkPointer& chunk, const std::vector<qint64>& numbers);
    std::vector<ChunkPointer> chunksToGoOn() const;

    PacketReader& reader;
    ChunkPlan plan;
    std::shared_ptr<ChunkStream> stream;
    ChunkCutter cutter;
    ChunkOrder order;
    std::deque<ChunkPointer> inHand; ///< whole and not yet handed on, oldest first
    ChunkPointer before;             ///< the last one that was; null at first
    std::deque<Frame> frames;        ///< to be handed out
    qint64 bytesDone = 0;            ///< of the chunks before `before`
    bool areReduced;                 ///< to cells
    bool hasBegun = false;
    bool isAtEnd = false; ///< of the packets
    bool hasMismatch = false;
    ChunkWorkers workers; ///< last: they end before all that they work on
};
