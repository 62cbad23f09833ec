// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "picturesource.h"

PictureSource::PictureSource(VideoDecoder& decoder, bool isAhead, const TimeOptions& times)
    : pictures(decoder, isAhead)
    , clock(times) {}

TimedPicture PictureSource::next() {
    last = pictures.next();
    // Only the caller holds the picture.
    const std::shared_ptr<const DecodedFrame> frame = std::move(last.frame);
    if (!frame)
        return {};
    const auto time = clock.next({frame->time, frame->isTimeMissing, last.headerFrameRate});
    hasUselessFirst = !time;
    return time ? TimedPicture{frame, *time} : TimedPicture();
}
