// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "codeccontext.h"
#include "framepacing.h"

#include <deque>

/// Decodes packets one at a time: what a packet completes comes out before the next one goes in.
class SerialDecoder {
public:
    /// `context` must be open and must not thread across pictures. `memory` counts its pictures and
    /// is told where the decoder runs out of it; it must outlive this object.
    SerialDecoder(CodecContextPointer context, FrameBudget& memory);

    /// The picture that comes with the packet, as `FramePacing` says; null if there is none. What
    /// the decoder thinks of the packet does not matter: a damaged one can complete a picture, too,
    /// and a good one need not.
    AVFramePointer decode(const AVPacket& packet);

    /// Whether the decoder has refused what it was given last.
    bool hasRefused() const { return isRefused; }

    /// The first of the pictures that the decoder still holds; null if it holds none. Nothing can
    /// be decoded from then on.
    AVFramePointer takeHeld();

    /// Forgets all packets so far.
    void flush();

    /// Pictures per second as the stream's headers say, 0 if unknown.
    double frameRate() const { return frameRateOf(*context); }

private:
    AVFramePointer nextWaiting();
    void noteRefusal(int result);

    CodecContextPointer context;
    FrameBudget& memory;
    FramePacing pacing;
    qint64 packets = 0;                 ///< so far
    bool isRefused = false;             ///< the last one
    AVFramePointer picture;             ///< reused until the decoder has filled it
    std::deque<AVFramePointer> waiting; ///< to be handed out, one for each packet
};
