// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellgrid.h"

#include <cstdint>

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
    int countInRow() const { return columns; }

    int columnOf(int tile) const { return tile % columns * tileColumns; } ///< of its first cell
    int rowOf(int tile) const { return tile / columns * tileRows; }

    /// Those of its cells that lie inside the grid.
    std::uint8_t cellsOf(int tile) const;

private:
    CellGrid grid;
    int columns;
    int rows;
};
