// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "groupmotion.h"

#include "grouprules.h"

#include <algorithm>

int GroupMotion::add(double time, const CellBits& changed) {
    forget(time, changed.grid);
    findLargest(changed);
    int most = 0;
    for (const CellGroup& group : largest)
        most = std::max(most, follow(time, group));
    return most;
}

void GroupMotion::forget(double time, CellGrid gridNow) {
    if (grid != gridNow || !(time >= last))
        tracks.clear();
    grid = gridNow;
    last = time;
    const auto isGone = [time](const Track& track) {
        return time - track.group.lastSeen() > longestGap;
    };
    tracks.erase(std::remove_if(tracks.begin(), tracks.end(), isGone), tracks.end());
    for (Track& track : tracks)
        track.isSeen = false;
}

void GroupMotion::findLargest(const CellBits& changed) {
    largest.clear();
    const auto isLarger = [](const CellGroup& one, const CellGroup& other) {
        return one.area > other.area;
    };
    for (const CellGroup& group : groups.find(changed, 1)) {
        if (largest.size() == mostFollowed && !isLarger(group, largest.back()))
            continue;
        if (largest.size() == mostFollowed)
            largest.pop_back();
        largest.insert(std::upper_bound(largest.begin(), largest.end(), group, isLarger), group);
    }
}

/// Answers the cells that the group counts as.
int GroupMotion::follow(double time, const CellGroup& group) {
    Track* track = group.area < leastGroup ? nullptr : trackOf(group);
    if (!track)
        return group.area;
    track->isSeen = true;
    track->group.see(time, group);
    return group.area * (track->group.isMovingAlong() ? alongWeight : 1);
}

/// That of the group before that has most in common with this one, of several the one followed for
/// longest, or a new one; null if there are too many.
GroupMotion::Track* GroupMotion::trackOf(const CellGroup& group) {
    Track* best = nullptr;
    int most = 0;
    for (Track& track : tracks) {
        const int overlap = track.isSeen ? 0 : track.group.overlap(group);
        if (overlap > most)
            best = &track;
        most = std::max(most, overlap);
    }
    if (best || tracks.size() >= mostTracks)
        return best;
    tracks.emplace_back();
    return &tracks.back();
}
