// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "groupmotion.h"
#include "motionseries.h"
#include "regiongroups.h"

/// The motion values of a recording's pictures, from the maps of their changed cells. The same
/// whether the maps are made at the moment or were kept.
class CellScores {
public:
    /// As `RegionGroups` has it.
    CellScores(RegionOfInterest region, QSize pictures, const CellOptions& options,
               CellBits restless = CellBits());

    /// The value of the next picture, at `time` seconds as the stream counts them: the share of
    /// the group of changed cells that counts most, in percent; what has moved along for a while
    /// counts several times (GroupMotion). 0 where nothing is selected.
    MotionScore add(double time, const CellMap& map);

    /// The same for a map that is not carried on, by its groups; `whole` cells are 100 %.
    MotionScore add(double time, const SeenGroups& seen, int whole);

    /// The value of the last picture, for one that carries its map on.
    MotionScore last() const { return score; }

    /// What finds the groups, for somebody else to do so.
    const RegionGroups& inRegion() const { return groups; }

private:
    RegionGroups groups;
    GroupMotion motion;
    MotionScore score;
};
