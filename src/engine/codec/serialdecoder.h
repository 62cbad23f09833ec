// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codeccontext.h"
#include "framedecoder.h"
#include "framepacing.h"
#include "packetreader.h"

#include <deque>

/// Decodes packets one at a time: what a packet completes comes out before the next one goes in.
class SerialDecoder : public FrameDecoder {
public:
    /// `context` must be open and must not thread across pictures. `memory` counts its pictures and
    /// is told where the decoder runs out of it. Frames that packets up to `lastNumber` complete
    /// are not handed out. All must outlive this object.
    SerialDecoder(CodecContextPointer context, PacketReader& reader, FrameBudget& memory,
                  qint64 lastNumber);

    Result next() override;
    double headerFrameRate() const override { return frameRateOf(*context); }
    qint64 undecodedPackets() const override { return undecoded; }
    AVFramePointer takeHeld() override;
    bool flush() override;

private:
    AVFramePointer decode(const AVPacket& packet);
    AVFramePointer nextWaiting();
    void noteRefusal(int result);
    void countUndecoded(qint64 packet);

    CodecContextPointer context;
    PacketReader& reader;
    FrameBudget& memory;
    FramePacing pacing;
    qint64 lastNumber;                  ///< of the packet that completed the last frame
    qint64 packets = 0;                 ///< so far
    qint64 undecoded = 0;               ///< of them, but for the last one
    bool isRefused = false;             ///< the last one
    bool isLastUndecoded = false;       ///< it counts, too
    AVFramePointer picture;             ///< reused until the decoder has filled it
    std::deque<AVFramePointer> waiting; ///< to be handed out, one for each packet
};
