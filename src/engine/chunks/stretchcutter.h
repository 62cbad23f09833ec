// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetreader.h"
#include "streamborders.h"
#include "stretch.h"
#include "stretchplan.h"

/// What is kept of a packet for the pictures that it completes.
struct PacketMark {
    std::int64_t dts = AV_NOPTS_VALUE;
    qint64 bytePosition = -1; ///< of the demuxer, once it was read
};

/// Cuts the packets of a stream into stretches, from border to border.
class StretchCutter {
public:
    /// `reader` must be open, at its start, and outlive this object.
    StretchCutter(PacketReader& reader, std::shared_ptr<StretchStream> stream,
                  const StretchPlan& plan);

    /// Reads one packet. False at the end: the last stretch is whole then.
    bool read();

    /// The stretches that have become whole, oldest first. To be taken out.
    std::deque<StretchPointer> whole;

    /// Whether the stretch at work is longer than the plan allows.
    bool isTooLong() const;

    /// Of all packets so far.
    qint64 bytesRead() const { return bytes; }

    /// Of packet `number`; null if it has not been read, or been forgotten.
    const PacketMark* mark(qint64 number) const;

    /// Forgets the marks of all packets before `number`.
    void forgetBefore(qint64 number);

    /// What has been read and belongs to no whole stretch yet, oldest first.
    std::vector<StretchPointer> unfinished() const;

private:
    void add(NumberedPacket packet, const PacketKind& kind);
    void addLeading(NumberedPacket packet, bool isSuspect);
    void endOpenBorder();
    bool isBorder(const PacketKind& kind) const;
    void finishCurrent();
    StretchPointer makeStretch();

    PacketReader& reader;
    std::shared_ptr<StretchStream> stream;
    StretchPlan plan;
    StreamBorders borders;
    StretchPointer current;  ///< null before the first packet and behind the last one
    StretchPointer next;     ///< behind an open border, while leading packets may follow; else null
    bool hasLeading = false; ///< somewhere so far
    qint64 count = 0;        ///< of stretches so far
    qint64 bytes = 0;        ///< of all packets so far
    std::deque<PacketMark> marks;
    qint64 firstMark = 0; ///< the number of the oldest one's packet
};
