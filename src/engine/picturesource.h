// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "decodeahead.h"
#include "pictureclock.h"

/// A picture with the time that the detection goes by.
struct TimedPicture {
    std::shared_ptr<const DecodedFrame> frame; ///< null at the end
    double time = 0.0;                         ///< seconds
};

/// The pictures of an open file, with the times that the options make of them.
class PictureSource {
public:
    /// `decoder` is as for `DecodeAhead`.
    PictureSource(VideoDecoder& decoder, bool isAhead, const TimeOptions& times);

    /// The next picture; waits for it. A first one whose time is of no use is none.
    TimedPicture next();

    qint64 bytePosition() const { return last.bytePosition; }

    /// Once `next` has answered none: why.
    const ReadEnd& end() const { return last.end; }

    /// Whether the first picture was none for want of a time.
    bool isFirstUseless() const { return hasUselessFirst; }

    /// Whether the times must be of use and all pictures so far have the same one.
    bool isStandingStill() const { return !clock.isRunning(); }

    /// Pictures per second at which the pictures are numbered; 0 if they have times of their own.
    double frameRate() const { return clock.frameRate(); }

private:
    DecodeAhead pictures;
    PictureClock clock;
    ReadPicture last;
    bool hasUselessFirst = false;
};
