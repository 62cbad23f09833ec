// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"

#include <array>
#include <cstdint>
#include <vector>

/// How strongly a cell differs, in sixteenths of what counts as changed: the least of each step
/// from 1 on, about 1.6 times the one before it. Step 0 is less than the first.
constexpr std::array<int, 4> cellSteps{10, 16, 26, 42};

constexpr int changedStep = 2; ///< what counts as changed, unless a person asks otherwise

/// Groups of fewer cells that touch, corners included, count nothing: less than a tenth of a
/// percent of most pictures. They need not be kept.
constexpr int leastGroup = 8;

/// How strongly each cell of one picture has changed.
struct CellMap {
    CellGrid grid;
    std::vector<std::uint8_t> steps; ///< row by row, 0..cellSteps.size()
    CellBits brighter; ///< those of any step but 0 that have become brighter; empty: none have

    /// It is that of the picture before, since maps are made less often than there are pictures
    /// (CellComparison).
    bool isCarried = false;

    /// Nothing has changed.
    explicit CellMap(CellGrid grid = {})
        : grid(grid)
        , steps(std::size_t(grid.count()), 0) {}
};
