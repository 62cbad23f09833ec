// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codeccontext.h"
#include "framedecoder.h"
#include "framepacing.h"
#include "packetreader.h"
#include "randomaccesspoints.h"
#include "restartpackets.h"

#include <cstdint>
#include <deque>
#include <optional>

/// Decodes several pictures at a time and hands out what one thread would hand out.
///
/// Frame threads give pictures back later than one thread does. To know which packet completed a
/// picture, every packet goes in with its running number in place of its decoding time stamp: the
/// decoder passes that number on to the picture that came out of the call for that packet, on
/// whichever thread the call ran. At the end of the stream the calls still under way end like all
/// others; pictures that are only pushed out of the reorder buffer belong to no packet, carry no
/// number and are dropped, as one thread never hands them out. Of several pictures that one packet
/// completes `FramePacing` says which count.
///
/// This is exact for undamaged, progressive streams without packed B pictures of the codecs that
/// `setUpThreads` gives frame threads. At the first sign that a stream is something else, `next`
/// falls back.
class FrameThreadedDecoder : public FrameDecoder {
public:
    /// `context` must be open with frame threads for the stream of `reader`, whose first packet is
    /// `firstPacket` unless it is still to come. `memory` counts its pictures. Frames that packets
    /// up to `lastNumber` complete are not handed out. `areKeysBelieved`: of the container, since
    /// there is no way back to the start of the file.
    FrameThreadedDecoder(CodecContextPointer context, PacketReader& reader,
                         const FrameBudget& memory, PacketPointer firstPacket, qint64 lastNumber,
                         bool areKeysBelieved);

    Result next() override;
    Restart takeRestart() override;
    double headerFrameRate() const override { return frameRateOf(*context); }

private:
    /// A picture and the packet that completed it.
    struct Completed {
        qint64 number;
        AVFramePointer picture;
    };

    /// How many pictures the decoder holds back once packet `number` is decoded.
    struct DelayChange {
        qint64 number;
        int delay;
    };

    bool feed(std::optional<NumberedPacket> packet);
    bool send(NumberedPacket packet);
    void keep(const NumberedPacket& packet);
    void noteDelay(qint64 number);
    bool isUnsafe(const AVFrame& picture) const;
    void add(AVFramePointer picture);
    bool isNextComplete() const;
    Frame takeNext();
    Result atEnd() const;

    CodecContextPointer context;
    PacketReader& reader;
    const FrameBudget& memory;
    FramePacing pacing;
    RestartPackets recent;
    RandomAccessPoints accessPoints;
    PacketPointer firstPacket; ///< of the stream; null if it has not been seen
    bool areKeysBelieved;
    bool hasAccessPoints = true;     ///< nothing has come that all that follows may depend on
    std::deque<DelayChange> delays;  ///< oldest first
    std::deque<Completed> waiting;   ///< to be handed out
    std::deque<std::int64_t> stamps; ///< decoding time stamps of the packets from `firstStamp` on
    qint64 firstStamp = 0;
    qint64 lastNumber; ///< packet that the last picture handed out came with
};
