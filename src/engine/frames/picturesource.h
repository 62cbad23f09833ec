// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "decodeahead.h"
#include "pictureclock.h"
#include "readend.h"

#include <optional>

class VideoDecoder;

/// The pictures of an open file, with the times that the options make of them.
class PictureSource {
public:
    /// `decoder` is as for `DecodeAhead`, and may have chunks.
    PictureSource(VideoDecoder& decoder, bool isAhead, const TimeOptions& times);

    /// The next picture; waits for it. A first one whose time is of no use is none.
    Frame next();

    qint64 bytePosition() const { return position; }

    /// Once `next` has answered none: why.
    const ReadEnd& end() const { return readEnd; }

    /// Whether the first picture was none for want of a time.
    bool isFirstUseless() const { return hasUselessFirst; }

    /// Whether the times must be of use and all pictures so far have the same one.
    bool isStandingStill() const { return !clock.isRunning(); }

    /// Pictures per second at which the pictures are numbered; 0 if they have times of their own.
    double frameRate() const { return clock.frameRate(); }

private:
    VideoDecoder& decoder;
    bool isAhead;
    std::optional<DecodeAhead> frames; ///< once there are no chunks, or no more
    PictureClock clock;
    qint64 position = -1;
    ReadEnd readEnd;
    bool hasUselessFirst = false;
};
