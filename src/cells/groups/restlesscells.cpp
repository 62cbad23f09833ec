// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "restlesscells.h"

#include <algorithm>
#include <utility>

namespace {

// From recordings with burnt-in clocks, a leaf, roads and a square full of people. Digits that
// change each second are seen in 90 to 100 % of stretches of one second, a leaf in half to three
// quarters, the busiest spots of a road and of the square as well: but these lie within more that
// changes in a third, which reaches over a tenth of the picture and more, the leaf's over 1.6 %.
constexpr double stretch = 1.0;               // seconds
constexpr std::uint32_t fewestStretches = 50; // recordings of a minute are usual
constexpr int restless = 2;                   // more than one in so many stretches
constexpr int nearRestless = 3;               // the same, around restless cells
constexpr int largest = 50; // one in so many cells of the picture: a box around all

using Cells = std::vector<std::pair<int, int>>; // columns and rows

/// The cells of the group around a cell, which are taken from `left`.
Cells takeGroup(CellBits& left, int column, int row) {
    Cells cells{{column, row}};
    left.remove(column, row);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const auto [x, y] = cells[i];
        for (int v = std::max(0, y - 1); v <= std::min(left.grid.rows - 1, y + 1); ++v) {
            for (int u = std::max(0, x - 1); u <= std::min(left.grid.columns - 1, x + 1); ++u) {
                if (!left.has(u, v))
                    continue;
                left.remove(u, v);
                cells.emplace_back(u, v);
            }
        }
    }
    return cells;
}

bool isSmall(const Cells& cells, CellGrid grid) {
    auto [left, top] = cells.front();
    auto [right, bottom] = cells.front();
    for (const auto& [column, row] : cells) {
        left = std::min(left, column);
        right = std::max(right, column);
        top = std::min(top, row);
        bottom = std::max(bottom, row);
    }
    return (right - left + 1) * (bottom - top + 1) * largest <= grid.count();
}

void addNeighbours(CellBits& cells, const Cells& group) {
    for (const auto& [x, y] : group) {
        for (int v = std::max(0, y - 1); v <= std::min(cells.grid.rows - 1, y + 1); ++v) {
            for (int u = std::max(0, x - 1); u <= std::min(cells.grid.columns - 1, x + 1); ++u)
                cells.add(u, v);
        }
    }
}

} // namespace

void RestlessCells::add(double time, const CellBits& changed) {
    if (inStretch.grid != changed.grid)
        beginAnew(changed.grid);
    if (isOpen && !(time >= begin && time < begin + stretch))
        endStretch();
    if (!isOpen)
        begin = time;
    isOpen = true;
    for (std::size_t i = 0; i < changed.words.size(); ++i)
        inStretch.words[i] |= changed.words[i];
}

void RestlessCells::beginAnew(CellGrid grid) {
    inStretch = CellBits(grid);
    isOpen = false;
    stretches = 0;
    counts.assign(std::size_t(grid.count()), 0);
}

void RestlessCells::endStretch() {
    std::size_t cell = 0;
    for (int row = 0; row < inStretch.grid.rows; ++row) {
        for (int column = 0; column < inStretch.grid.columns; ++column)
            counts[cell++] += inStretch.has(column, row) ? 1 : 0;
    }
    ++stretches;
    inStretch = CellBits(inStretch.grid);
    isOpen = false;
}

CellBits RestlessCells::found() const {
    if (stretches < fewestStretches)
        return CellBits();
    CellBits cells(inStretch.grid);
    const CellBits seeds = changingIn(restless);
    CellBits left = changingIn(nearRestless);
    for (int row = 0; row < cells.grid.rows; ++row) {
        for (int column = 0; column < cells.grid.columns; ++column) {
            if (!seeds.has(column, row) || !left.has(column, row))
                continue;
            const Cells group = takeGroup(left, column, row);
            if (isSmall(group, cells.grid))
                addNeighbours(cells, group);
        }
    }
    return cells;
}

/// The cells that change in more than one of `share` stretches.
CellBits RestlessCells::changingIn(int share) const {
    CellBits cells(inStretch.grid);
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (std::uint64_t(counts[i]) * std::uint64_t(share) > stretches)
            cells.add(int(i) % cells.grid.columns, int(i) / cells.grid.columns);
    }
    return cells;
}
