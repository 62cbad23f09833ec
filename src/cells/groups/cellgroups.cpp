// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellgroups.h"

#include <algorithm>

namespace {

constexpr int wordBits = 64;

} // namespace

const std::vector<CellGroup>& CellGroups::find(const CellBits& cells, int leastArea,
                                               const CellBits& marks) {
    clear(cells.grid.columns);
    for (int row = 0; row < cells.grid.rows; ++row) {
        const std::size_t word = std::size_t(row) * std::size_t(cells.wordsPerRow);
        Row& current = rows[std::size_t(row % 2)];
        findRuns(current, cells.words.data() + word, cells.wordsPerRow);
        if (!marks.words.empty())
            countMarks(current, marks, row);
        joinRow(row);
    }
    const auto isLeftOut = [leastArea](const CellGroup& group) {
        return group.area == 0 || group.area < leastArea;
    };
    groups.erase(std::remove_if(groups.begin(), groups.end(), isLeftOut), groups.end());
    return groups;
}

void CellGroups::clear(int columns) {
    groups.clear();
    mergedInto.clear();
    for (Row& row : rows) {
        row.runs.resize(std::size_t(columns / 2) + 1);
        row.count = 0;
    }
}

/// The first cells of all runs are those without one to their left, the last ones those without one
/// to their right: there are as many.
void CellGroups::findRuns(Row& row, const std::uint64_t* cells, int words) {
    Run* begun = row.begin();
    Run* ended = begun;
    for (int word = 0; word < words; ++word) {
        const std::uint64_t bits = cells[word];
        if (bits == 0)
            continue;
        const std::uint64_t before = word == 0 ? 0 : cells[word - 1] >> (wordBits - 1);
        const std::uint64_t behind = word + 1 == words ? 0 : cells[word + 1] << (wordBits - 1);
        for (std::uint64_t firsts = bits & ~(bits << 1 | before); firsts != 0; firsts &= firsts - 1)
            *begun++ = {word * wordBits + __builtin_ctzll(firsts), 0, -1, 0};
        for (std::uint64_t lasts = bits & ~(bits >> 1 | behind); lasts != 0; lasts &= lasts - 1)
            (ended++)->end = word * wordBits + __builtin_ctzll(lasts);
    }
    row.count = int(begun - row.begin());
}

void CellGroups::countMarks(Row& runs, const CellBits& marks, int row) {
    for (Run& run : runs)
        run.marked = marks.countInRow(row, run.begin, run.end);
}

/// Makes each run of a row one of a group.
void CellGroups::joinRow(int number) {
    const Row& above = rows[std::size_t(1 - number % 2)];
    const Run* touched = above.begin(); // the first that can touch the run, or one behind it
    for (Run& run : rows[std::size_t(number % 2)]) {
        while (touched != above.end() && touched->end + 1 < run.begin)
            ++touched;
        run.group = groupAbove(run, touched, above);
        if (run.group < 0)
            run.group = openGroup(run, number);
        CellGroup& group = groups[std::size_t(run.group)];
        const int length = run.end - run.begin + 1;
        group.area += length;
        group.columns += (run.begin + run.end) * length / 2;
        group.rows += number * length;
        group.marked += run.marked;
        group.left = std::min(group.left, run.begin);
        group.right = std::max(group.right, run.end);
        group.bottom = number;
    }
}

/// The group of all runs above that a run touches; -1 if there are none.
int CellGroups::groupAbove(const Run& run, const Run* touched, const Row& above) {
    int group = -1;
    for (; touched != above.end() && touched->begin <= run.end + 1; ++touched) {
        const int other = firstOf(touched->group);
        group = group < 0 ? other : merge(group, other);
    }
    return group;
}

int CellGroups::openGroup(const Run& run, int row) {
    const int group = int(groups.size());
    groups.push_back({0, run.begin, run.end, row, row, 0, 0, 0});
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
    into.marked += from.marked;
    into.left = std::min(into.left, from.left);
    into.right = std::max(into.right, from.right);
    into.top = std::min(into.top, from.top);
    into.bottom = std::max(into.bottom, from.bottom);
    from.area = 0;
    mergedInto[std::size_t(second)] = first;
    return first;
}
