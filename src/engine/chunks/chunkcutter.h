// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chunk.h"
#include "chunkplan.h"
#include "packetreader.h"
#include "randomaccesspoints.h"

/// What is kept of a packet for the pictures that it completes.
struct PacketMark {
    std::int64_t dts = AV_NOPTS_VALUE;
    qint64 bytePosition = -1; ///< of the demuxer, once it was read
};

/// Cuts the packets of a stream into chunks, from access point to access point.
class ChunkCutter {
public:
    /// `reader` must be open, at its start, and outlive this object.
    ChunkCutter(PacketReader& reader, std::shared_ptr<ChunkStream> stream, const ChunkPlan& plan);

    /// Reads one packet. False at the end: the last chunk is whole then.
    bool read();

    /// The chunks that have become whole, oldest first. To be taken out.
    std::deque<ChunkPointer> whole;

    /// Whether the chunk at work is longer than the plan allows.
    bool isTooLong() const;

    /// Of all packets so far.
    qint64 bytesRead() const { return bytes; }

    /// Of packet `number`; null if it has not been read, or been forgotten.
    const PacketMark* mark(qint64 number) const;

    /// Forgets the marks of all packets before `number`.
    void forgetBefore(qint64 number);

    /// What has been read and belongs to no whole chunk yet, oldest first.
    std::vector<ChunkPointer> unfinished() const;

private:
    void add(NumberedPacket packet, const PacketKind& kind);
    void addLeading(NumberedPacket packet, bool isDiscontinuity);
    void endOpenGop();
    bool isAccessPoint(const PacketKind& kind) const;
    void finishCurrent();
    ChunkPointer makeChunk();

    PacketReader& reader;
    std::shared_ptr<ChunkStream> stream;
    ChunkPlan plan;
    RandomAccessPoints accessPoints;
    ChunkPointer current;    ///< null before the first packet and behind the last one
    ChunkPointer next;       ///< behind an open GOP, while leading packets may follow; else null
    bool hasLeading = false; ///< somewhere so far
    qint64 count = 0;        ///< of chunks so far
    qint64 bytes = 0;        ///< of all packets so far
    std::deque<PacketMark> marks;
    qint64 firstMark = 0; ///< the number of the oldest one's packet
};
