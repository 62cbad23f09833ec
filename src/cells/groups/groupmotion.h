// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "followedgroup.h"

/// How much moves in each picture of a recording, from the groups of cells that have changed in it.
/// They are followed from map to map.
class GroupMotion {
public:
    /// The cells of the group that counts most, of which one counts several times, once or not at
    /// all by what it has done before (grouprules.h). `time` in seconds, as the stream counts them.
    /// A time that runs backwards begins anew, and so does another grid.
    int add(double time, const SeenGroups& seen);

private:
    struct Track {
        FollowedGroup group;
        bool isSeen = false; ///< in the last map
    };

    /// Tracks of the last map that a group goes on with; -1: none.
    struct Match {
        int same = -1;   ///< it is that group
        int parent = -1; ///< it overlaps that one most, which may be another's
    };

    void forget(double time, CellGrid gridNow);
    Match matchOf(const CellGroup& group);
    int follow(double time, const SeenGroup& seen, Match match, int changed);

    std::vector<Match> matches; ///< of the groups of the last map
    std::vector<Track> tracks;
    CellGrid grid;
    double last = 0.0; ///< time
};
