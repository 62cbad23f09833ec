// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chunkcutter.h"
#include "chunkframe.h"
#include "chunkorder.h"
#include "chunkworkers.h"

/// Reads a recording's pictures, decoded in chunks side by side, with the result of one decoder.
///
/// What is read and not yet handed out is bounded by its bytes. In doubt it ends early, and the
/// rest is to be decoded from the packets that it gives back.
class ChunkReader {
public:
    /// `reader` must be open, at its start. `context`, for one thread, is newly opened for its
    /// stream. `reader` and `memory` must outlive this object and all its pictures.
    /// `keeperMaker` may be null: no small pictures are made.
    ChunkReader(PacketReader& reader, FrameBudget& memory, CodecContextPointer context,
                const ChunkPlan& plan, const PictureComparisonMaker& maker,
                const PictureKeeperMaker& keeperMaker);

    /// The next picture. Nothing at the end, once interrupted, and in doubt.
    std::optional<ChunkFrame> next();

    /// Once `next` has answered nothing: whether there is more.
    bool isInDoubt() const { return hasDoubt; }

    /// Where to go on in doubt.
    struct Rest {
        /// From an access point a whole chunk before the first picture that is not handed out, or
        /// the start of the file. Empty: the file must be read from its start.
        std::deque<NumberedPacket> packets;
        PacketPointer firstPacket; ///< of the stream; null without memory
        qint64 lastNumber = -1;    ///< of the packet that completed the last picture handed out
        bool isDamaged = false;    ///< several threads would soon be in doubt, too
        int reorderDelay = -1;     ///< that the decoder has to begin with; -1: what it finds
    };
    Rest takeRest();

private:
    bool isNextCertain() const;
    void begin();
    void fill();
    bool canReadOn() const;
    bool handOnNext();
    void letGoOfBefore(Chunk& next);
    void readMarksUpTo(qint64 number);
    void makePictures(const ChunkPointer& chunk, const std::vector<qint64>& numbers);
    std::vector<ChunkPointer> chunksToGoOn() const;

    PacketReader& reader;
    ChunkPlan plan;
    std::shared_ptr<ChunkStream> stream;
    ChunkCutter cutter;
    ChunkOrder order;
    std::deque<ChunkPointer> inHand; ///< whole and not yet handed on, oldest first
    ChunkPointer before;             ///< the last one that was; null at first
    std::deque<ChunkFrame> pictures; ///< to be handed out
    qint64 lastNumber = -1;
    qint64 bytesDone = 0; ///< of the chunks before `before`
    bool hasTimes;        ///< seen while the file was opened
    bool hasBegun = false;
    bool isAtEnd = false; ///< of the packets
    bool hasDoubt = false;
    ChunkWorkers workers; ///< last: they end before all that they work on
};
