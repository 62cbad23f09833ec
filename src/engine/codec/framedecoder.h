// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "frame.h"

#include <deque>

/// Where another decoder goes on, just behind the last frame that one has handed out, so that what
/// comes is what one decoder on one thread gives that never stopped.
struct Restart {
    /// Up to the last one read, from an access point a whole group before that frame on, or from
    /// the stream's first. Empty: the file must be read from its start.
    std::deque<NumberedPacket> packets;

    PacketPointer firstPacket;  ///< of the stream; null if it was never seen
    int reorderDelay = 0;       ///< pictures that a decoder held back there to put them in order
    bool isForOneThread = true; ///< several would soon fall back, too

    bool isFromStart() const { return packets.empty() || packets.front().number == 0; }
};

/// Makes frames of a reader's packets.
class FrameDecoder {
public:
    enum class Outcome {
        Frame,       ///< `frame` is the next one
        End,         ///< end of file, error of the file, or interrupted
        OutOfMemory, ///< the next one finds no room
        Fallback     ///< what comes next may not be what one thread hands out: `takeRestart`
    };

    struct Result {
        Outcome outcome;
        Frame frame;
    };

    FrameDecoder() = default;
    virtual ~FrameDecoder() = default;
    FrameDecoder(const FrameDecoder&) = delete;
    FrameDecoder& operator=(const FrameDecoder&) = delete;

    virtual Result next() = 0;

    /// Behind a fallback.
    virtual Restart takeRestart() { return {}; }

    /// Pictures per second as the stream's own headers say, 0 if unknown.
    virtual double headerFrameRate() const { return 0.0; }

    /// Packets behind the first frame that could not be decoded, but for the last one so far.
    virtual qint64 undecodedPackets() const { return 0; }

    /// The first of the pictures that it still holds; null if it holds none. Nothing can be decoded
    /// from then on.
    virtual AVFramePointer takeHeld() { return nullptr; }

    /// Forgets all packets so far, for others that come from elsewhere in the stream. False if it
    /// cannot.
    virtual bool flush() { return false; }
};
