// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "celltiles.h"

#include <algorithm>

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
