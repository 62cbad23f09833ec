// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "celloptions.h"
#include "groupfinder.h"
#include "region.h"

#include <QSize>

/// Finds the groups of changed cells inside a region. Those of a map do not depend on other maps.
class RegionGroups {
public:
    /// `pictures` is the size of the recording's first ones. Cells that are `restless` are left
    /// out of the region, where the maps have the grid of these.
    RegionGroups(RegionOfInterest region, QSize pictures, const CellOptions& options,
                 CellBits restless);

    /// Makes the region one of `grid`, which all maps have that come before the next call.
    void fit(CellGrid grid);

    SeenGroups find(const CellMap& map);

    /// The same of a map's cells that have reached the step of the options, those that have reached
    /// the weaker one, and at least those of them that have become brighter.
    SeenGroups find(const CellBits& changed, const CellBits& nearly, const CellBits& brighter);

    int whole() const { return cellsOfWhole; } ///< so many cells are 100 %; 0: none are selected

    /// The step that cells must have reached.
    int step() const { return options.step; }

private:
    RegionOfInterest region;
    QSize pictures;
    CellOptions options;
    CellBits restless;

    CellBits selected;
    int cellsOfWhole = 0;
    ChangedCells cells; ///< of the last map in which any has changed, of those that are selected
    GroupFinder finder;
};
