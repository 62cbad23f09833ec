// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "regiongroups.h"

#include "cellmap.h"
#include "cellregion.h"

#include <algorithm>
#include <utility>

namespace {

/// Which step cells have nearly changed from.
int weakerStep(int step) {
    return std::max(1, step - 1);
}

} // namespace

RegionGroups::RegionGroups(RegionOfInterest region, QSize pictures, const CellOptions& options,
                           CellBits restless)
    : region(std::move(region))
    , pictures(pictures)
    , options(options)
    , restless(std::move(restless)) {}

void RegionGroups::fit(CellGrid grid) {
    if (grid == selected.grid)
        return;
    selected = cellsOf(region, pictures, grid);
    if (restless.grid == grid)
        selected.remove(restless);
    cellsOfWhole = wholeOf(selected);
}

SeenGroups RegionGroups::find(const CellMap& map) {
    const bool hasBrighter = map.brighter.grid == map.grid;
    return find(cellsFrom(map, options.step), cellsFrom(map, weakerStep(options.step)),
                hasBrighter ? map.brighter : CellBits(map.grid));
}

SeenGroups RegionGroups::find(const CellBits& changed, const CellBits& nearly,
                              const CellBits& brighter) {
    cells.changed = changed;
    cells.changed.keep(selected);
    if (!cells.changed.isEmpty()) {
        cells.nearly = nearly;
        cells.nearly.keep(selected);
        cells.brighter = brighter;
        cells.brighter.keep(cells.nearly);
    }
    return finder.find(cells);
}
