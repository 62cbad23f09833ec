// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"

#include <vector>

/// Cells that touch, corners included.
struct CellGroup {
    int area = 0; ///< cells

    // The box around them, in cells; both ends are in it.
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;

    // Sums over its cells; divided by the area they are its middle.
    int columns = 0;
    int rows = 0;
};

/// The groups of `cells` that have at least `leastArea` of them, in the order of their first cells,
/// row by row.
std::vector<CellGroup> groupsOf(const CellBits& cells, int leastArea);
