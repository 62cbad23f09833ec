// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellthinning.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using Place = std::pair<int, int>; // column, row

/// The cells of the group of one of them, or `leastGroup` of these.
std::vector<Place> someOf(const CellBits& cells, Place first) {
    std::vector<Place> found{first};
    for (std::size_t i = 0; i < found.size(); ++i) {
        const auto [column, row] = found[i];
        for (int y = std::max(0, row - 1); y <= std::min(cells.grid.rows - 1, row + 1); ++y) {
            for (int x = std::max(0, column - 1); x <= std::min(cells.grid.columns - 1, column + 1);
                 ++x) {
                const Place place{x, y};
                if (!cells.has(x, y) || std::find(found.begin(), found.end(), place) != found.end())
                    continue;
                found.push_back(place);
                if (int(found.size()) == leastGroup)
                    return found;
            }
        }
    }
    return found;
}

/// Lets the cells of the group of one of them fall to the step below if it is a small one.
void removeIfSmall(CellMap& map, CellBits& cells, Place first, int step) {
    const std::vector<Place> found = someOf(cells, first);
    if (int(found.size()) == leastGroup)
        return;
    for (const auto& [column, row] : found) {
        cells.remove(column, row);
        map.steps[map.grid.placeOf(column, row)] = std::uint8_t(step - 1);
    }
}

/// Whether there was any group at all.
bool removeFrom(CellMap& map, int step, CellGroups& groups) {
    CellBits cells = cellsFrom(map, step);
    const std::vector<CellGroup>& found = groups.find(cells, 1);
    for (const CellGroup& group : found) {
        if (group.area >= leastGroup)
            continue;
        // Cells of larger groups may lie in its box.
        for (int row = group.top; row <= group.bottom; ++row) {
            for (int column = group.left; column <= group.right; ++column) {
                if (cells.has(column, row))
                    removeIfSmall(map, cells, {column, row}, step);
            }
        }
    }
    return !found.empty();
}

} // namespace

// A group of one step lies within one of the step below, so that the lowest come first.
void removeSmallGroups(CellMap& map, CellGroups& groups) {
    int step = 1;
    while (step <= int(cellSteps.size()) && removeFrom(map, step, groups))
        ++step;
}
