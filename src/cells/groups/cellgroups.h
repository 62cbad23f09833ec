// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"

#include <array>
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

    int marked = 0; ///< cells that are marked as well
};

/// Finds groups of cells. Keeps its memory for the next call.
class CellGroups {
public:
    /// The groups that have at least `leastArea` cells, in the order of their first cells, row by
    /// row. Those of their cells that are in `marks` are counted, which is of the same grid or of
    /// none. Valid until the next call.
    const std::vector<CellGroup>& find(const CellBits& cells, int leastArea,
                                       const CellBits& marks = CellBits());

private:
    /// Cells of one row without a gap; both ends are in it.
    struct Run {
        int begin;
        int end;
        int group;
        int marked;
    };

    struct Row {
        std::vector<Run> runs; ///< with room for as many as a row can have
        int count = 0;

        const Run* begin() const { return runs.data(); }
        const Run* end() const { return runs.data() + count; }
        Run* begin() { return runs.data(); }
        Run* end() { return runs.data() + count; }
    };

    void clear(int columns);
    static void findRuns(Row& row, const std::uint64_t* cells, int words);
    static void countMarks(Row& runs, const CellBits& marks, int row);
    void joinRow(int number);
    int groupAbove(const Run& run, const Run* touched, const Row& above);
    int openGroup(const Run& run, int row);
    int firstOf(int group);
    int merge(int group, int other);

    std::array<Row, 2> rows;     ///< the even one and the odd one
    std::vector<int> mergedInto; ///< of each group: itself, or one before it
    std::vector<CellGroup> groups;
};
