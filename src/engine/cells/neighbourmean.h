// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellgrid.h"

#include <cstdint>
#include <vector>

/// The mean of each cell and the eight around it, rounded. Beyond the border cells are as those at
/// it. `numbers` are those of `grid`, row by row.
void averageNeighbours(const std::vector<std::int16_t>& numbers, CellGrid grid,
                       std::vector<std::int16_t>& means);
