// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chunkpictures.h"
#include "clippicture.h"

#include <map>

class ChunkSnapshot;

/// Those pictures of one chunk that can still become a snapshot and have no small picture yet, by
/// their places in the chunk.
using ChunkCandidates = std::map<int, ChunkSnapshot*>;

/// A picture of a chunk that can still become a snapshot. Where its small picture was not made
/// when it was decoded, its chunk is decoded once more, for all its candidates at once. The
/// recording's decoder must be there until then.
class ChunkSnapshot : public ClipPicture {
public:
    /// `candidates` are those of the same chunk.
    ChunkSnapshot(Frame picture, std::shared_ptr<ChunkCandidates> candidates);
    ~ChunkSnapshot() override;
    ChunkSnapshot(const ChunkSnapshot&) = delete;
    ChunkSnapshot& operator=(const ChunkSnapshot&) = delete;

    QImage snapshot() override;
    QString flaw() const override { return error; }

    /// Makes the small picture only where too many packets are kept for large ones: it costs more
    /// than these do.
    void shrink() override;

private:
    void makeSmall();
    void decodeAll();
    void setSmall(QImage image);

    Frame picture; ///< without a chunk once the small picture is made
    std::shared_ptr<ChunkCandidates> candidates;
    QImage small;
    QString error;
};

/// Makes the handles of a recording's chunked pictures, in their order.
class ChunkSnapshots {
public:
    ClipPicturePointer handleOf(const Frame& picture);

private:
    std::weak_ptr<const Chunk> chunk; ///< that of the last one
    std::shared_ptr<ChunkCandidates> candidates;
};
