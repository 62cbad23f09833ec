// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "groupfinder.h"

#include "cellmap.h"
#include "grouprules.h"

#include <algorithm>

namespace {

void addLargest(std::vector<SeenGroup>& largest, const CellGroup& group) {
    const auto isLarger = [](const CellGroup& one, const SeenGroup& other) {
        return one.area > other.group.area;
    };
    if (largest.size() == mostFollowed && !isLarger(group, largest.back()))
        return;
    if (largest.size() == mostFollowed)
        largest.pop_back();
    largest.insert(std::upper_bound(largest.begin(), largest.end(), group, isLarger), {group});
}

void countNear(SeenGroup& seen, const ChangedCells& cells) {
    const CellGroup& group = seen.group;
    const int left = std::max(0, group.left - 1);
    const int right = std::min(cells.nearly.grid.columns - 1, group.right + 1);
    const int bottom = std::min(cells.nearly.grid.rows - 1, group.bottom + 1);
    for (int row = std::max(0, group.top - 1); row <= bottom; ++row) {
        const int brighter = cells.brighter.countInRow(row, left, right);
        seen.brighterNear += brighter;
        seen.darkerNear += cells.nearly.countInRow(row, left, right) - brighter;
    }
}

int longerSide(const CellGroup& group) {
    return std::max(group.right - group.left, group.bottom - group.top) + 1;
}

/// Cells between the boxes around two groups, in the direction in which there are more.
int gapBetween(const CellGroup& one, const CellGroup& other) {
    return std::max({0, one.left - other.right - 1, other.left - one.right - 1,
                     one.top - other.bottom - 1, other.top - one.bottom - 1});
}

bool isOneWay(const CellGroup& group) {
    return !isBothWays(group.marked, group.area - group.marked);
}

bool isMostlyBrighter(const CellGroup& group) {
    return 2 * group.marked > group.area;
}

/// Whether two groups can be where one thing arrives and where it was.
bool arePartners(const CellGroup& one, const CellGroup& other) {
    return isOneWay(one) && isOneWay(other) && isMostlyBrighter(one) != isMostlyBrighter(other) &&
           one.area <= partnerRatio * other.area && other.area <= partnerRatio * one.area &&
           gapBetween(one, other) <= std::min(longerSide(one), longerSide(other));
}

void findPartners(std::vector<SeenGroup>& groups) {
    for (SeenGroup& one : groups) {
        one.hasPartner = std::any_of(groups.begin(), groups.end(), [&one](const SeenGroup& other) {
            return arePartners(one.group, other.group);
        });
    }
}

} // namespace

bool isBothWays(int brighter, int darker) {
    return std::min(brighter, darker) * 100 > bothWaysPercent * (brighter + darker);
}

SeenGroups GroupFinder::find(const ChangedCells& cells) {
    SeenGroups found;
    found.grid = cells.changed.grid;
    if (cells.changed.isEmpty()) // as most maps are
        return found;
    for (const CellGroup& group : groups.find(cells.changed, leastGroup, cells.brighter)) {
        found.changed += group.area;
        addLargest(found.largest, group);
    }
    for (SeenGroup& seen : found.largest)
        countNear(seen, cells);
    findPartners(found.largest);
    return found;
}
