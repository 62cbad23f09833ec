// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellpicture.h"
#include "decodedframe.h"
#include "libavpointers.h"
#include "motionscore.h"

#include <cstdint>
#include <memory>
#include <optional>

struct Chunk;

/// One frame of a recording, on its way from the decoder to the clips.
///
/// It has its picture, or, compared with the one before it and let go, a place in a chunk, whose
/// packets are kept so that it can be decoded again. It has neither where there are no more.
struct Frame {
    std::shared_ptr<DecodedFrame> picture;
    std::shared_ptr<const Chunk> chunk;
    int index = 0;                     ///< in the chunk
    qint64 packet = -1;                ///< place in the stream of the packet that completed it
    double time = 0.0;                 ///< seconds; of that packet, or as a clock has made it
    bool isTimeMissing = false;        ///< the packet has none: a very large negative number
    int width = 0;                     ///< pixels
    int height = 0;                    ///< pixels
    std::optional<MotionScore> motion; ///< of the comparison in the chunk; nothing if none could be
    CellPicturePointer cells;          ///< made in the chunk; null if there are none
    qint64 bytePosition = -1;          ///< how far into the file the demuxer was when it came out
    double headerFrameRate = 0.0; ///< frames per second where the stream's headers tell that and
                                  ///< it has no times at all; else 0

    bool isThere() const { return picture || chunk; }
};

/// The time of a packet in seconds.
double secondsOf(std::int64_t stamp, const AVRational& timeBase);

/// The frame that a packet has completed whose time is `stamp`.
Frame frameOf(AVFramePointer picture, qint64 packet, std::int64_t stamp,
              const AVRational& timeBase);
