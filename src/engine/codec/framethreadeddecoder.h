// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codeccontext.h"
#include "framepacing.h"
#include "packetreader.h"
#include "randomaccesspoints.h"
#include "restartpackets.h"

#include <cstdint>
#include <deque>
#include <optional>

/// A picture and the packet that completed it.
struct CompletedPicture {
    qint64 number = -1;                ///< of the packet
    std::int64_t dts = AV_NOPTS_VALUE; ///< of the packet; AV_NOPTS_VALUE if it has none
    AVFramePointer picture;
};

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
/// answers Unsafe and the caller goes on with one thread.
class FrameThreadedDecoder {
public:
    enum class Outcome {
        Picture, ///< `picture` holds the next one
        End,     ///< end of file, error of the file, or interrupted
        Unsafe   ///< what comes next may not be what one thread would hand out
    };

    struct Result {
        Outcome outcome;
        CompletedPicture picture;
    };

    /// `context` must be open with frame threads for the stream of `reader`, whose first packet is
    /// `firstPacket` unless it is still to come. Pictures that packets up to `lastNumber` complete
    /// are not handed out. `areKeysBelieved`: of the container, since there is no way back to the
    /// start of the file.
    FrameThreadedDecoder(CodecContextPointer context, const PacketReader& reader,
                         PacketPointer firstPacket, qint64 lastNumber, bool areKeysBelieved);

    Result next(PacketReader& reader);

    /// Where one thread begins.
    struct Restart {
        /// Up to the last one read. Empty: it must be the start of the file.
        std::deque<NumberedPacket> packets;
        PacketPointer firstPacket; ///< of the stream; null if it was never seen
        int reorderDelay = 0; ///< pictures that the decoder held back there to put them in order
    };

    /// After Unsafe.
    Restart takeRestart();

    /// Pictures per second as the stream's headers say, 0 if unknown.
    double frameRate() const { return frameRateOf(*context); }

private:
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
    CompletedPicture takeNext();

    CodecContextPointer context;
    FramePacing pacing;
    RestartPackets restart;
    RandomAccessPoints accessPoints;
    PacketPointer firstPacket; ///< of the stream; null if it has not been seen
    bool areKeysBelieved;
    bool hasAccessPoints = true;          ///< nothing has come that all that follows may depend on
    std::deque<DelayChange> delays;       ///< oldest first
    std::deque<CompletedPicture> waiting; ///< to be handed out, without their time stamps
    std::deque<std::int64_t> stamps; ///< decoding time stamps of the packets from `firstStamp` on
    qint64 firstStamp = 0;
    qint64 lastNumber; ///< packet that the last picture handed out came with
};
