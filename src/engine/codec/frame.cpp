// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "frame.h"

double secondsOf(std::int64_t stamp, const AVRational& timeBase) {
    // A missing time is the smallest 64-bit number, which a double holds exactly.
    return double(stamp) * (double(timeBase.num) / double(timeBase.den));
}

Frame frameOf(AVFramePointer picture, qint64 packet, std::int64_t stamp,
              const AVRational& timeBase) {
    Frame frame;
    frame.packet = packet;
    frame.time = secondsOf(stamp, timeBase);
    frame.isTimeMissing = stamp == AV_NOPTS_VALUE;
    frame.width = picture->width;
    frame.height = picture->height;
    frame.picture = FramePointer(new DecodedFrame{frame.time, picture.release()});
    return frame;
}
