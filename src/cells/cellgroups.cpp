// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellgroups.h"

#include <algorithm>

namespace {

/// The first column from `column` on that is in `cells`, or is not; all of them if there is none.
int nextColumn(const CellBits& cells, int row, int column, bool isIn) {
    const std::uint64_t turn = isIn ? 0 : ~std::uint64_t(0);
    const std::size_t words = std::size_t(row) * std::size_t(cells.wordsPerRow);
    while (column < cells.grid.columns) {
        const std::uint64_t word = (cells.words[words + std::size_t(column / 64)] ^ turn);
        const std::uint64_t rest = word >> (column % 64);
        if (rest != 0)
            return std::min(column + __builtin_ctzll(rest), cells.grid.columns);
        column = (column / 64 + 1) * 64;
    }
    return cells.grid.columns;
}

} // namespace

const std::vector<CellGroup>& CellGroups::find(const CellBits& cells, int leastArea) {
    groups.clear();
    mergedInto.clear();
    runs.clear();
    for (int row = 0; row < cells.grid.rows; ++row) {
        runs.swap(runsAbove);
        findRuns(cells, row);
        std::size_t above = 0;
        for (Run& run : runs)
            join(run, above, row);
    }
    const auto isLeftOut = [leastArea](const CellGroup& group) {
        return group.area == 0 || group.area < leastArea;
    };
    groups.erase(std::remove_if(groups.begin(), groups.end(), isLeftOut), groups.end());
    return groups;
}

void CellGroups::findRuns(const CellBits& cells, int row) {
    runs.clear();
    const int columns = cells.grid.columns;
    for (int column = nextColumn(cells, row, 0, true); column < columns;) {
        const int behind = nextColumn(cells, row, column, false);
        runs.push_back({column, behind - 1, -1});
        column = nextColumn(cells, row, behind, true);
    }
}

/// Adds a run to the groups that it touches in the row above, and makes one of them. `above` is the
/// first run there that can touch it, or one behind it.
void CellGroups::join(Run& run, std::size_t& above, int row) {
    while (above < runsAbove.size() && runsAbove[above].end + 1 < run.begin)
        ++above;
    for (std::size_t i = above; i < runsAbove.size() && runsAbove[i].begin <= run.end + 1; ++i) {
        const int touched = firstOf(runsAbove[i].group);
        run.group = run.group < 0 ? touched : merge(run.group, touched);
    }
    if (run.group < 0)
        run.group = openGroup(run, row);
    CellGroup& group = groups[std::size_t(run.group)];
    const int length = run.end - run.begin + 1;
    group.area += length;
    group.columns += (run.begin + run.end) * length / 2;
    group.rows += row * length;
    group.left = std::min(group.left, run.begin);
    group.right = std::max(group.right, run.end);
    group.bottom = row;
}

int CellGroups::openGroup(const Run& run, int row) {
    const int group = int(groups.size());
    groups.push_back({0, run.begin, run.end, row, row, 0, 0});
    mergedInto.push_back(group);
    return group;
}

int CellGroups::firstOf(int group) {
    while (mergedInto[std::size_t(group)] != group) {
        int& next = mergedInto[std::size_t(group)];
        next = mergedInto[std::size_t(next)];
        group = next;
    }
    return group;
}

/// Answers the one of two groups that holds the cells of both from now on, the earlier one.
int CellGroups::merge(int group, int other) {
    if (group == other)
        return group;
    const auto [first, second] = std::minmax(group, other);
    CellGroup& into = groups[std::size_t(first)];
    CellGroup& from = groups[std::size_t(second)];
    into.area += from.area;
    into.columns += from.columns;
    into.rows += from.rows;
    into.left = std::min(into.left, from.left);
    into.right = std::max(into.right, from.right);
    into.top = std::min(into.top, from.top);
    into.bottom = std::max(into.bottom, from.bottom);
    from.area = 0;
    mergedInto[std::size_t(second)] = first;
    return first;
}
