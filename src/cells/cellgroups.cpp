// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellgroups.h"

#include <algorithm>
#include <utility>

namespace {

void removeAt(CellBits& cells, int column, int row) {
    cells.words[std::size_t(row * cells.wordsPerRow + column / 64)] &=
        ~(std::uint64_t(1) << (column % 64));
}

void widen(CellGroup& group, int column, int row) {
    ++group.area;
    group.columns += column;
    group.rows += row;
    group.left = std::min(group.left, column);
    group.right = std::max(group.right, column);
    group.top = std::min(group.top, row);
    group.bottom = std::max(group.bottom, row);
}

CellGroup takeGroup(CellBits& left, int column, int row) {
    CellGroup group;
    group.left = group.right = column;
    group.top = group.bottom = row;
    std::vector<std::pair<int, int>> reached{{column, row}};
    removeAt(left, column, row);
    for (std::size_t i = 0; i < reached.size(); ++i) {
        const auto [x, y] = reached[i];
        widen(group, x, y);
        for (int v = std::max(0, y - 1); v <= std::min(left.grid.rows - 1, y + 1); ++v) {
            for (int u = std::max(0, x - 1); u <= std::min(left.grid.columns - 1, x + 1); ++u) {
                if (!left.has(u, v))
                    continue;
                removeAt(left, u, v);
                reached.emplace_back(u, v);
            }
        }
    }
    return group;
}

} // namespace

std::vector<CellGroup> groupsOf(const CellBits& cells, int leastArea) {
    CellBits left = cells;
    std::vector<CellGroup> groups;
    for (int row = 0; row < left.grid.rows; ++row) {
        for (int column = 0; column < left.grid.columns; ++column) {
            if (!left.has(column, row))
                continue;
            const CellGroup group = takeGroup(left, column, row);
            if (group.area >= leastArea)
                groups.push_back(group);
        }
    }
    return groups;
}
