// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "groupmotion.h"

#include "cellmap.h"
#include "grouprules.h"

#include <algorithm>

namespace {

SeenGroup seenIn(const ChangedCells& cells, const CellGroup& group) {
    SeenGroup seen;
    seen.group = group;
    const int left = std::max(0, group.left - 1);
    const int right = std::min(cells.nearly.grid.columns - 1, group.right + 1);
    const int bottom = std::min(cells.nearly.grid.rows - 1, group.bottom + 1);
    for (int row = std::max(0, group.top - 1); row <= bottom; ++row) {
        const int brighter = cells.brighter.countInRow(row, left, right);
        seen.brighterNear += brighter;
        seen.darkerNear += cells.nearly.countInRow(row, left, right) - brighter;
    }
    return seen;
}

} // namespace

int GroupMotion::add(double time, const ChangedCells& cells) {
    forget(time, cells.changed.grid);
    if (cells.changed.isEmpty()) // as most maps are
        return 0;
    findLargest(cells);
    matches.clear();
    for (const CellGroup& group : largest)
        matches.push_back(matchOf(group));
    int most = 0;
    for (std::size_t i = 0; i < largest.size(); ++i)
        most = std::max(most, follow(time, seenIn(cells, largest[i]), matches[i]));
    return most;
}

void GroupMotion::forget(double time, CellGrid gridNow) {
    if (grid != gridNow || !(time >= last))
        tracks.clear();
    const auto isGone = [this, time](const Track& track) {
        const double gap = time - track.group.lastSeen();
        return gap > (track.group.lastSeen() == last ? longestRareGap : longestGap);
    };
    tracks.erase(std::remove_if(tracks.begin(), tracks.end(), isGone), tracks.end());
    for (Track& track : tracks)
        track.isSeen = false;
    grid = gridNow;
    last = time;
}

void GroupMotion::findLargest(const ChangedCells& cells) {
    largest.clear();
    changed = 0;
    const auto isLarger = [](const CellGroup& one, const CellGroup& other) {
        return one.area > other.area;
    };
    for (const CellGroup& group : groups.find(cells.changed, leastGroup, cells.brighter)) {
        changed += group.area;
        if (largest.size() == mostFollowed && !isLarger(group, largest.back()))
            continue;
        if (largest.size() == mostFollowed)
            largest.pop_back();
        largest.insert(std::upper_bound(largest.begin(), largest.end(), group, isLarger), group);
    }
}

/// Of several that overlap as much the one that has been followed for longest.
GroupMotion::Match GroupMotion::matchOf(const CellGroup& group) {
    Match match;
    int mostOfFree = 0;
    int mostOfAll = 0;
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        const int overlap = tracks[i].group.overlap(group);
        if (overlap > mostOfFree && !tracks[i].isSeen) {
            mostOfFree = overlap;
            match.same = int(i);
        }
        if (overlap > mostOfAll) {
            mostOfAll = overlap;
            match.parent = int(i);
        }
    }
    if (match.same >= 0)
        tracks[std::size_t(match.same)].isSeen = true;
    return match;
}

/// Answers the cells that the group counts as.
int GroupMotion::follow(double time, const SeenGroup& seen, Match match) {
    const int area = seen.group.area;
    if (match.same < 0) {
        if (tracks.size() >= mostTracks)
            return area;
        const double since =
            match.parent < 0 ? time : tracks[std::size_t(match.parent)].group.oneWaySince();
        match.same = int(tracks.size());
        tracks.push_back({FollowedGroup(time, since), true});
    }
    FollowedGroup& followed = tracks[std::size_t(match.same)].group;
    followed.see(time, seen);
    return area * followed.weight(area * shareOfChanged >= changed);
}
