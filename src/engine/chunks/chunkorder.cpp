// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunkorder.h"

#include <algorithm>

namespace {

/// Containers can take a picture for a key frame that is none.
bool standsAlone(const AVFrame& picture) {
    return picture.pict_type == AV_PICTURE_TYPE_I || picture.pict_type == AV_PICTURE_TYPE_NONE;
}

} // namespace

std::optional<std::vector<qint64>> ChunkOrder::add(Chunk& chunk) {
    if (chunk.hasMismatch)
        return std::nullopt;
    if (chunk.index == 0 && !chunk.results.empty()) {
        delay = chunk.delay;
        offset = chunk.results.front().fed;
    }
    if (!isRegular(chunk))
        return std::nullopt;
    const std::vector<qint64> numbers = numbersOf(chunk);
    compareFirst(chunk);
    pictures += qint64(numbers.size());
    if (chunk.last)
        last = std::move(chunk.last);
    return numbers;
}

bool ChunkOrder::isRegular(const Chunk& chunk) const {
    if (chunk.results.empty()) // too short an end for a picture to come out
        return chunk.isLast && chunk.index > 0 && delay > 0 && chunk.expectedPictures() <= delay;
    const bool isShared = chunk.leading > 0 || !chunk.tail.empty();
    if (chunk.delay != delay || offset < delay || (delay == 0 && isShared))
        return false;
    if (chunk.index > 0) {
        const AVFrame& first = *chunk.first->frame;
        if (!areAlike(*last->frame, first) || (delay == 0 && !standsAlone(first)))
            return false;
    }
    return hasAllPictures(chunk);
}

bool ChunkOrder::hasAllPictures(const Chunk& chunk) const {
    const auto& results = chunk.results;
    if (delay == 0)
        return std::all_of(results.begin(), results.end(),
                           [](const ChunkResult& result) { return result.fed >= 0; });
    const int late = chunk.index == 0 ? offset : delay;
    const int lost = chunk.isLast ? late : late - delay;
    if (int(results.size()) != std::max(0, chunk.expectedPictures() - lost))
        return false;
    for (std::size_t i = 0; i < results.size(); ++i) {
        if (results[i].fed >= 0 && results[i].fed != int(i) + late)
            return false;
    }
    return true;
}

std::vector<qint64> ChunkOrder::numbersOf(const Chunk& chunk) const {
    std::vector<qint64> numbers;
    numbers.reserve(chunk.results.size());
    const qint64 first = chunk.packets.front().number;
    for (const ChunkResult& result : chunk.results) {
        const qint64 place = pictures + qint64(numbers.size());
        numbers.push_back(delay == 0 ? first + result.fed : place + offset);
    }
    return numbers;
}

void ChunkOrder::compareFirst(Chunk& chunk) {
    if (chunk.first && last) {
        std::optional<MotionScore>& motion = chunk.results.front().motion;
        motion = compare(*last, *chunk.first);
        if (keeper)
            keeper->takeFirst(pictures, *last, *chunk.first, motion, chunk.kept);
    }
    chunk.first.reset();
}
