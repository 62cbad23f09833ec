// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chunkframe.h"
#include "decodeahead.h"
#include "pictureclock.h"

#include <optional>

/// A picture with the time that the detection goes by.
///
/// It has a frame, or a place in a chunk, or neither at the end.
struct TimedPicture {
    std::shared_ptr<const DecodedFrame> frame;
    double time = 0.0; ///< seconds
    std::optional<ChunkFrame> chunked;

    bool isThere() const { return frame || chunked; }
    qint64 packet() const { return frame ? frame->packet : chunked->packet; }
    int width() const { return frame ? frame->width() : chunked->width; }
    int height() const { return frame ? frame->height() : chunked->height; }
};

/// The pictures of an open file, with the times that the options make of them.
class PictureSource {
public:
    /// `decoder` is as for `DecodeAhead`, and may have chunks.
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
    TimedPicture nextChunked();
    TimedPicture timed(TimedPicture picture, const StoredTime& stored);

    VideoDecoder& decoder;
    bool isAhead;
    std::optional<DecodeAhead> frames; ///< once there are no chunks, or no more
    PictureClock clock;
    ReadPicture last;
    bool hasUselessFirst = false;
};
