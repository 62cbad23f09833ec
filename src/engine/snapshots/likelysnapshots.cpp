// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "likelysnapshots.h"

#include "motionseries.h"
#include "snapshotimage.h"

#include <algorithm>
#include <utility>

namespace {

// Half a second of most recordings. Shorter ones would cost more for what they find, and of longer
// ones windows that begin in the middle of motion would show more others.
constexpr int blockLength = 12;

// Of one chunk: a dozen small pictures of the usual shape.
constexpr qint64 mostKeptBytes = 3 * 1024 * 1024;

void add(KeptPictures& kept, int place, float value, const DecodedFrame& frame) {
    const auto same = kept.find(place);
    if (same != kept.end()) {
        same->second.value = std::max(same->second.value, value);
        return;
    }
    QImage picture = snapshotImage(frame);
    if (!picture.isNull())
        kept[place] = {value, std::move(picture)};
}

bool isWeaker(const KeptPictures::value_type& a, const KeptPictures::value_type& b) {
    return a.second.value < b.second.value;
}

void forgetWeakest(KeptPictures& kept) {
    qint64 bytes = 0;
    for (const auto& [place, picture] : kept)
        bytes += picture.picture.sizeInBytes();
    while (bytes > mostKeptBytes) {
        const auto weakest = std::min_element(kept.begin(), kept.end(), isWeaker);
        bytes -= weakest->second.picture.sizeInBytes();
        kept.erase(weakest);
    }
}

} // namespace

LikelySnapshots::LikelySnapshots(MotionThreshold threshold, int skip)
    : threshold(threshold)
    , skip(skip) {}

void LikelySnapshots::begin(qint64 number) {
    first = number;
    current.reset();
    inBlock = 0;
    strongest = {};
    pending = {};
    kept.clear();
}

void LikelySnapshots::take(int place, const Picture& previous, const Picture& picture,
                           std::optional<MotionScore> motion) {
    if (motion && skippedFrom(first + place, skip) == 0)
        current = motion;
    if (current && threshold.isReachedBy(*current)) {
        if (current->value > strongest.value) {
            strongest.value = current->value;
            strongest.place = place;
            strongest.picture = picture;
        }
        if (current->value >= strongest.value) {
            strongest.placeBefore = place - 1;
            strongest.before = previous;
        }
    }
    if (++inBlock == blockLength)
        endBlock();
}

KeptPictures LikelySnapshots::end() {
    endBlock();
    endBlock();
    return std::exchange(kept, {});
}

void LikelySnapshots::takeFirst(qint64 number, const DecodedFrame& previous,
                                const DecodedFrame& picture, std::optional<MotionScore> motion,
                                KeptPictures& keptOfChunk) const {
    if (!motion || skippedFrom(number, skip) != 0 || !threshold.isReachedBy(*motion))
        return;
    const auto next = keptOfChunk.lower_bound(0);
    const bool isNear = next != keptOfChunk.end() && next->first < blockLength;
    if (isNear && next->second.value > motion->value)
        return;
    add(keptOfChunk, -1, motion->value, previous);
    add(keptOfChunk, 0, motion->value, picture);
}

void LikelySnapshots::endBlock() {
    if (pending.value >= 0.0F && pending.value >= strongest.value)
        keep(pending);
    pending = std::exchange(strongest, {});
    inBlock = 0;
}

void LikelySnapshots::keep(const Strongest& found) {
    add(kept, found.placeBefore, found.value, *found.before);
    add(kept, found.place, found.value, *found.picture);
    forgetWeakest(kept);
}
