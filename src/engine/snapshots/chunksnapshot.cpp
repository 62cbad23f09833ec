// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunksnapshot.h"

#include "snapshotimage.h"

#include <optional>
#include <utility>

namespace {

// Beside those that are in hand: half a minute of any camera's stream.
constexpr qint64 mostPictureBytes = 64 * 1024 * 1024;

} // namespace

ChunkSnapshot::ChunkSnapshot(Frame chunked, std::shared_ptr<ChunkCandidates> candidates)
    : picture(std::move(chunked))
    , candidates(std::move(candidates)) {
    (*this->candidates)[picture.index] = this;
    const QImage kept = keptPicture(picture);
    if (!kept.isNull())
        setSmall(kept);
}

ChunkSnapshot::~ChunkSnapshot() {
    if (picture.chunk)
        candidates->erase(picture.index);
}

QImage ChunkSnapshot::snapshot() {
    makeSmall();
    return small;
}

void ChunkSnapshot::shrink() {
    if (picture.chunk && keptBytes(picture) > mostPictureBytes)
        makeSmall();
}

/// The last picture of a chunk may have got its small one only with the next chunk.
void ChunkSnapshot::makeSmall() {
    if (!picture.chunk)
        return;
    const QImage kept = keptPicture(picture);
    if (kept.isNull())
        decodeAll();
    else
        setSmall(kept);
}

void ChunkSnapshot::decodeAll() {
    const std::shared_ptr<const Chunk> chunk = picture.chunk;
    std::map<int, std::optional<QImage>> images; // nothing where no picture comes
    for (const auto& [place, candidate] : *candidates)
        images[place];
    decodeAgain(*chunk, [&images](int place, const FramePointer& frame) {
        const auto wanted = images.find(place);
        if (wanted != images.end())
            wanted->second = snapshotImage(*frame);
        return place < images.rbegin()->first;
    });
    for (auto& [place, image] : images) {
        ChunkSnapshot& candidate = *candidates->at(place);
        if (!image)
            candidate.error = QStringLiteral("its picture cannot be decoded once more");
        candidate.setSmall(image.value_or(QImage()));
    }
}

void ChunkSnapshot::setSmall(QImage image) {
    small = std::move(image);
    picture.chunk.reset();
    candidates->erase(picture.index);
}

ClipPicturePointer ChunkSnapshots::handleOf(const Frame& picture) {
    if (!candidates || chunk.lock() != picture.chunk) {
        chunk = picture.chunk;
        candidates = std::make_shared<ChunkCandidates>();
    }
    return std::make_shared<ChunkSnapshot>(picture, candidates);
}
