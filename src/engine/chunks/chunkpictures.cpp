// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunkpictures.h"

#include "chunkdecoder.h"
#include "logging.h"

FramePointer decodeAgain(const Frame& frame) {
    FramePointer found;
    decodeAgain(*frame.chunk, [&found, &frame](int place, FramePointer picture) {
        if (place == frame.index)
            found = std::move(picture);
        return !found;
    });
    return found;
}

void decodeAgain(const Chunk& chunk,
                 const std::function<bool(int place, FramePointer picture)>& take) {
    qCDebug(engineLog, "chunk %lld once more", static_cast<long long>(chunk.index));
    ChunkDecoder decoder(chunk.stream, nullptr, {}, {}, nullptr, [] { return false; });
    decoder.decodeAgain(chunk, take);
}

QImage keptPicture(const Frame& frame) {
    const KeptPictures& kept = frame.chunk->kept;
    const auto found = kept.find(frame.index);
    return found == kept.end() ? QImage() : found->second.picture;
}

qint64 keptBytes(const Frame& frame) {
    return frame.chunk->stream->keptBytes;
}
