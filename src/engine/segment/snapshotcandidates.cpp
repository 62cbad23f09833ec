// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "snapshotcandidates.h"

namespace {

constexpr std::size_t fewestPictures = 10;

// A candidate that outlives a few newer ones costs one small conversion and then next to nothing.
// Few enough for the whole engine to stay within a dozen decoded pictures.
constexpr std::size_t mostFullSize = 2;

} // namespace

SnapshotCandidates::SnapshotCandidates(double span)
    : span(span) {}

void SnapshotCandidates::add(MotionScore motion, double pictureTime, ClipPicturePointer picture,
                             double now) {
    while (!entries.empty() && entries.back().candidate.motion.value <= motion.value)
        entries.pop_back();
    const qint64 number = oldest + qint64(times.size());
    entries.push_back({{motion, pictureTime, std::move(picture)}, number});
    times.push_back(pictureTime);
    dropOld(now);
    shrinkOld();
}

const SnapshotCandidates::Candidate* SnapshotCandidates::best() const {
    return entries.empty() ? nullptr : &entries.front().candidate;
}

void SnapshotCandidates::dropOld(double now) {
    while (times.size() > fewestPictures && now > times.front() + span) {
        times.pop_front();
        ++oldest;
        if (entries.front().number < oldest)
            entries.pop_front();
    }
}

void SnapshotCandidates::shrinkOld() {
    if (entries.size() > mostFullSize)
        entries[entries.size() - mostFullSize - 1].candidate.picture->shrink();
}
