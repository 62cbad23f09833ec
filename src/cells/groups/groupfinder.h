// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellgroups.h"

#include <vector>

/// What has changed in a picture: sets of one grid, of the cells that are looked at alone.
struct ChangedCells {
    CellBits changed;
    CellBits nearly;   ///< have reached the step before, all of `changed` included
    CellBits brighter; ///< at least those of `nearly` that have become brighter
};

/// A group as it is in one map. Its marks are the cells that have become brighter.
struct SeenGroup {
    CellGroup group;

    // Cells that have nearly changed, in the box around it with a cell more on each side.
    int brighterNear = 0;
    int darkerNear = 0;

    bool hasPartner = false; ///< goes one way, and another one near it goes the other way
};

/// Whether cells go both ways, of which so many have become brighter and so many darker.
bool isBothWays(int brighter, int darker);

/// The groups of one map.
struct SeenGroups {
    CellGrid grid;
    std::vector<SeenGroup> largest; ///< up to `mostFollowed` of them, the largest first
    int changed = 0;                ///< cells of all groups, of smaller ones as well
};

/// Finds the groups of a map, whatever was in other maps. Keeps its memory for the next one.
class GroupFinder {
public:
    /// Where nothing has changed the other sets may be empty.
    SeenGroups find(const ChangedCells& cells);

private:
    CellGroups groups;
};
