// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "picturesource.h"

#include "videodecoder.h"

PictureSource::PictureSource(VideoDecoder& decoder, bool isAhead, const TimeOptions& times)
    : decoder(decoder)
    , isAhead(isAhead)
    , clock(times) {}

/// A first frame whose time is of no use is none.
Frame PictureSource::next() {
    // What comes from chunks is decoded on threads of their own.
    Frame frame = decoder.isInChunks() ? decoder.next() : Frame();
    if (!frame.isThere() && !decoder.isInChunks()) {
        if (!frames)
            frames.emplace(decoder, isAhead);
        frame = frames->next();
    }
    position = frame.bytePosition;
    if (!frame.isThere()) {
        readEnd = decoder.readEnd();
        return {};
    }
    const auto time = clock.next({frame.time, frame.isTimeMissing, frame.headerFrameRate});
    hasUselessFirst = !time;
    if (!time)
        return {};
    frame.time = *time;
    return frame;
}
