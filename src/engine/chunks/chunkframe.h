// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "decodedframe.h"
#include "motionscore.h"

#include <QImage>

#include <functional>
#include <memory>
#include <optional>

struct Chunk;

/// A picture that has been decoded, compared with the one before it and let go. Its chunk's
/// packets are kept, so that it can be decoded again.
struct ChunkFrame {
    qint64 packet = -1;         ///< place in the stream of the packet that completed it
    double time = 0.0;          ///< seconds; as for `DecodedFrame`
    bool isTimeMissing = false; ///< as for `DecodedFrame`
    int width = 0;              ///< pixels
    int height = 0;             ///< pixels
    std::optional<MotionScore>
        motion;               ///< of the comparison; nothing for the first one, or if none could be
    qint64 bytePosition = -1; ///< how far into the file the demuxer was behind that packet
    double headerFrameRate = 0.0;       ///< as `VideoDecoder` has it
    std::shared_ptr<const Chunk> chunk; ///< never null
    int index = 0;                      ///< in the chunk
};

/// Decodes the picture once more. Its time is not set; null if it cannot be had. The recording's
/// decoder must still be there.
FramePointer decodeAgain(const ChunkFrame& picture);

/// Decodes pictures of a chunk once more, from its first one on, for as long as `take` answers
/// true. It is given each with its place; times are not set. The recording's decoder must still be
/// there.
void decodeAgain(const Chunk& chunk,
                 const std::function<bool(int place, FramePointer frame)>& take);

/// The small picture that was made of it while it was there; null if there is none.
QImage keptPicture(const ChunkFrame& picture);

/// The bytes of the packets that nothing but pictures of its recording keeps alive, beside those of
/// the chunk at hand.
qint64 keptBytes(const ChunkFrame& picture);
