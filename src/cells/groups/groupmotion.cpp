// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "groupmotion.h"

#include "grouprules.h"

#include <algorithm>

int GroupMotion::add(double time, const SeenGroups& seen) {
    forget(time, seen.grid);
    matches.clear();
    for (const SeenGroup& group : seen.largest)
        matches.push_back(matchOf(group.group));
    int most = 0;
    for (std::size_t i = 0; i < seen.largest.size(); ++i)
        most = std::max(most, follow(time, seen.largest[i], matches[i], seen.changed));
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

/// Answers the cells that the group counts as, one of a map with `changed` cells in groups.
int GroupMotion::follow(double time, const SeenGroup& seen, Match match, int changed) {
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
