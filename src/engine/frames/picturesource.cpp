// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "picturesource.h"

#include "videodecoder.h"

#include <new>

PictureSource::PictureSource(VideoDecoder& decoder, bool isAhead, const TimeOptions& times)
    : decoder(decoder)
    , isAhead(isAhead)
    , clock(times) {}

TimedPicture PictureSource::next() {
    if (decoder.hasChunks()) {
        TimedPicture picture = nextChunked();
        if (picture.isThere() || decoder.hasChunks())
            return picture;
    }
    if (!frames)
        frames.emplace(decoder, isAhead);
    last = frames->next();
    // Only the caller holds the picture.
    std::shared_ptr<const DecodedFrame> frame = std::move(last.frame);
    if (!frame)
        return {};
    const StoredTime stored{frame->time, frame->isTimeMissing, last.headerFrameRate};
    return timed({std::move(frame), 0.0, std::nullopt}, stored);
}

TimedPicture PictureSource::nextChunked() {
    std::optional<ChunkFrame> picture;
    ReadEnd end;
    try {
        picture = decoder.readChunked();
        end = decoder.readEnd();
    } catch (const std::bad_alloc&) {
        end = {ReadEnd::Cause::OutOfMemory, QStringLiteral("out of memory")};
    }
    if (!picture) {
        last = {nullptr, decoder.bytePosition(), 0.0, end};
        return {};
    }
    const StoredTime stored{picture->time, picture->isTimeMissing, picture->headerFrameRate};
    last = {nullptr, picture->bytePosition, picture->headerFrameRate, {}};
    return timed({nullptr, 0.0, std::move(picture)}, stored);
}

/// A first picture whose time is of no use is none.
TimedPicture PictureSource::timed(TimedPicture picture, const StoredTime& stored) {
    const auto time = clock.next(stored);
    hasUselessFirst = !time;
    if (!time)
        return {};
    picture.time = *time;
    return picture;
}
