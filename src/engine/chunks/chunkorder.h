// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chunk.h"

/// Judges chunks, in their order, by whether they give what a decoder gives that never stops,
/// and numbers their pictures.
///
/// A decoder that holds back `delay` pictures completes a picture with the packet that comes as
/// many places behind its own; one that has the chunk alone does the same or, at its end, gives
/// them away. Where packets and pictures do not go in such pairs, nothing is certain.
class ChunkOrder {
public:
    /// `keeper` may be null.
    explicit ChunkOrder(PictureComparison compare, std::unique_ptr<PictureKeeper> keeper = nullptr)
        : compare(std::move(compare))
        , keeper(std::move(keeper)) {}

    /// Takes the next chunk, once it is decoded. Answers for each of its pictures the number of
    /// the packet that completes it, which can lie behind the chunk; nothing at a mismatch.
    /// Compares the first picture with the last one of the chunk before.
    std::optional<std::vector<qint64>> add(Chunk& chunk);

    /// How many pictures the decoder holds back, as the recording has shown.
    int reorderDelay() const { return delay; }

    /// Whether pictures have come out as late as that from the first one on.
    bool isDelayUsual() const { return offset == delay; }

private:
    bool isRegular(const Chunk& chunk) const;
    bool hasAllPictures(const Chunk& chunk) const;
    std::vector<qint64> numbersOf(const Chunk& chunk) const;
    void compareFirst(Chunk& chunk);

    PictureComparison compare;
    std::unique_ptr<PictureKeeper> keeper;
    int delay = 0;
    int offset = 0; ///< places from a picture's own packet to the one that completes it
    qint64 pictures = 0;
    std::shared_ptr<const DecodedFrame> last; ///< of the chunk before; null if there is none
};
