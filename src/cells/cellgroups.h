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

/// Finds groups of cells. Keeps its memory for the next call.
class CellGroups {
public:
    /// The groups that have at least `leastArea` cells, in the order of their first cells, row by
    /// row. Valid until the next call.
    const std::vector<CellGroup>& find(const CellBits& cells, int leastArea);

private:
    /// Cells of one row without a gap; both ends are in it.
    struct Run {
        int begin;
        int end;
        int group;
    };

    void findRuns(const CellBits& cells, int row);
    void join(Run& run, std::size_t& above, int row);
    int openGroup(const Run& run, int row);
    int firstOf(int group);
    int merge(int group, int other);

    std::vector<Run> runs;       ///< of a row
    std::vector<Run> runsAbove;  ///< of the row before it
    std::vector<int> mergedInto; ///< of each group: itself, or one before it
    std::vector<CellGroup> groups;
};
