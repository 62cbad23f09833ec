// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipmerger.h"

#include <utility>

namespace {

/// Seconds. Differences of times that are told apart in milliseconds are off by much less.
constexpr double rounding = 1e-6;

void join(DetectedClip& clip, const DetectedClip& next) {
    clip.end = next.end;
    if (next.strongestMotion.value <= clip.strongestMotion.value)
        return;
    clip.strongestMotion = next.strongestMotion;
    clip.snapshot = next.snapshot;
    clip.snapshotFlaw = next.snapshotFlaw;
    clip.snapshotTime = next.snapshotTime;
}

} // namespace

ClipMerger::ClipMerger(double gap)
    : gap(gap) {}

std::optional<DetectedClip> ClipMerger::add(const DetectedClip& clip) {
    if (last && !isApart(clip.start)) {
        join(*last, clip);
        return std::nullopt;
    }
    std::optional<DetectedClip> before = finish();
    last = clip;
    return before;
}

std::optional<DetectedClip> ClipMerger::passBy(double earliestStart) {
    return last && isApart(earliestStart) ? finish() : std::nullopt;
}

std::optional<DetectedClip> ClipMerger::finish() {
    if (last)
        last->index = found++;
    return std::exchange(last, std::nullopt);
}

bool ClipMerger::isApart(double start) const {
    return start - last->end > gap + rounding;
}
