// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellgroups.h"
#include "followedgroup.h"

/// What has changed in a picture: sets of one grid, of the cells that are looked at alone.
struct ChangedCells {
    CellBits changed;
    CellBits nearly;   ///< have reached the step before, all of `changed` included
    CellBits brighter; ///< at least those of `nearly` that have become brighter
};

/// How much moves in each picture of a recording, from the cells that have changed in it. Cells
/// that touch, corners included, are one group; groups are followed from map to map.
class GroupMotion {
public:
    /// The cells of the group that counts most, of which one counts several times, once or not at
    /// all by what it has done before (grouprules.h). `time` in seconds, as the stream counts them.
    /// A time that runs backwards begins anew, and so does another grid. Where nothing has changed
    /// the other sets may be empty.
    int add(double time, const ChangedCells& cells);

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
    void findLargest(const ChangedCells& cells);
    Match matchOf(const CellGroup& group);
    int follow(double time, const SeenGroup& seen, Match match);

    CellGroups groups;
    std::vector<CellGroup> largest; ///< of the last map, the largest first
    int changed = 0;                ///< cells of all of its groups
    std::vector<Match> matches;     ///< of the largest
    std::vector<Track> tracks;
    CellGrid grid;
    double last = 0.0; ///< time
};
