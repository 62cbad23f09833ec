// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellgrid.h"

#include <array>
#include <cstdint>
#include <vector>

/// How strongly a cell differs, in sixteenths of what counts as changed: the least of each step
/// from 1 on. Step 0 is less than the first.
constexpr std::array<int, 6> cellSteps{8, 11, 16, 23, 32, 64};

constexpr int changedStep = 3; ///< what counts as changed, unless a person asks otherwise

/// How strongly each cell of one picture has changed.
struct CellMap {
    CellGrid grid;
    std::vector<std::uint8_t> steps; ///< row by row, 0..cellSteps.size()
};
