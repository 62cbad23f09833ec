// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellmap.h"

#include <cstdint>
#include <vector>

/// A tile is two rows of four cells, a byte where each cell is set or is not: bit 0 is the first
/// cell of its upper row, bit 4 the first of its lower one.
constexpr int tileColumns = 4;
constexpr int tileRows = 2;

/// How a grid is divided into tiles, row by row. Those at its right and its lower end may reach
/// beyond it.
class TileGrid {
public:
    explicit TileGrid(CellGrid grid = {});

    int count() const { return columns * rows; }

    int columnOf(int tile) const { return tile % columns * tileColumns; } ///< of its first cell
    int rowOf(int tile) const { return tile / columns * tileRows; }

    /// Those of its cells that lie inside the grid.
    std::uint8_t cellsOf(int tile) const;

    /// The steps of each tile's cells, as bytes of a word in the order of bits.
    void read(const CellMap& map, std::vector<std::uint64_t>& steps) const;

private:
    std::uint64_t stepsOf(const CellMap& map, int tile) const;

    CellGrid grid;
    int columns;
    int rows;
};

/// The cells among `steps` that have reached `step`.
std::uint8_t cellsThatReach(std::uint64_t steps, int step);
