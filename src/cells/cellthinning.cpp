// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellthinning.h"

#include "cellmap.h"

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

void removeSmallGroup(CellBits& cells, Place first) {
    const std::vector<Place> found = someOf(cells, first);
    if (int(found.size()) == leastGroup)
        return;
    for (const auto& [column, row] : found)
        cells.remove(column, row);
}

} // namespace

void removeSmallGroups(CellBits& cells, CellGroups& groups) {
    for (const CellGroup& group : groups.find(cells, 1)) {
        if (group.area >= leastGroup)
            continue;
        // Cells of larger groups may lie in its box.
        for (int row = group.top; row <= group.bottom; ++row) {
            for (int column = group.left; column <= group.right; ++column) {
                if (cells.has(column, row))
                    removeSmallGroup(cells, {column, row});
            }
        }
    }
}
