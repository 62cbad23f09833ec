// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellgroups.h"
#include "followedgroup.h"

/// How much moves in each picture of a recording, from the cells that have changed in it. Cells
/// that touch, corners included, are one group; groups are followed from picture to picture.
class GroupMotion {
public:
    /// The cells of the group that counts most, of which one that moves along counts several times
    /// (grouprules.h). `time` in seconds, as the stream counts them; `changed` has the cells that
    /// are looked at alone. A time that runs backwards begins anew, and so does another grid.
    int add(double time, const CellBits& changed);

private:
    struct Track {
        FollowedGroup group;
        bool isSeen = false; ///< in the last picture
    };

    void forget(double time, CellGrid gridNow);
    void findLargest(const CellBits& changed);
    int follow(double time, const CellGroup& group);
    Track* trackOf(const CellGroup& group);

    CellGroups groups;
    std::vector<CellGroup> largest; ///< of the last picture, the largest first
    std::vector<Track> tracks;
    CellGrid grid;
    double last = 0.0; ///< time
};
