// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "celltiles.h"

#include <algorithm>

namespace {

/// Four bytes as those of a word, the first lowest; one instruction where machines count so.
std::uint64_t fourSteps(const std::uint8_t* steps) {
    return std::uint64_t(steps[0]) | std::uint64_t(steps[1]) << 8 | std::uint64_t(steps[2]) << 16 |
           std::uint64_t(steps[3]) << 24;
}

} // namespace

TileGrid::TileGrid(CellGrid grid)
    : grid(grid)
    , columns((grid.columns + tileColumns - 1) / tileColumns)
    , rows((grid.rows + tileRows - 1) / tileRows) {}

std::uint8_t TileGrid::cellsOf(int tile) const {
    const int width = std::min(tileColumns, grid.columns - columnOf(tile));
    const unsigned upper = (1U << width) - 1;
    const bool hasLower = rowOf(tile) + 1 < grid.rows;
    return std::uint8_t(hasLower ? upper | upper << tileColumns : upper);
}

void TileGrid::read(const CellMap& map, std::vector<std::uint64_t>& steps) const {
    steps.resize(std::size_t(count()));
    const bool isEven = grid.columns % tileColumns == 0 && grid.rows % tileRows == 0;
    if (!isEven) {
        for (int tile = 0; tile < count(); ++tile)
            steps[std::size_t(tile)] = stepsOf(map, tile);
        return;
    }
    std::uint64_t* next = steps.data();
    for (int row = 0; row < grid.rows; row += tileRows) {
        const std::uint8_t* upper = map.steps.data() + row * grid.columns;
        for (int column = 0; column < grid.columns; column += tileColumns)
            *next++ = fourSteps(upper + column) | fourSteps(upper + grid.columns + column) << 32;
    }
}

std::uint64_t TileGrid::stepsOf(const CellMap& map, int tile) const {
    const unsigned inside = cellsOf(tile);
    std::uint64_t steps = 0;
    for (int bit = 0; bit < tileColumns * tileRows; ++bit) {
        const int row = rowOf(tile) + bit / tileColumns;
        const int column = columnOf(tile) + bit % tileColumns;
        if ((inside >> bit & 1U) != 0)
            steps |= std::uint64_t(map.steps[std::size_t(row * grid.columns + column)]) << 8 * bit;
    }
    return steps;
}

std::uint8_t cellsThatReach(std::uint64_t steps, int step) {
    constexpr std::uint64_t ones = 0x0101010101010101;
    // The highest bit of each byte that has reached it, and then these bits beside each other.
    const std::uint64_t reached = (steps + std::uint64_t(0x80 - step) * ones) >> 7 & ones;
    return std::uint8_t(reached * 0x0102040810204080 >> 56);
}
