// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionmap.h"

#include <algorithm>

namespace {

/// Where the middle of one of `count` lies among `others` of the same side.
int placeAmong(int index, int count, int others) {
    return (2 * index + 1) * others / (2 * count);
}

CellGrid coarse(CellGrid grid) {
    const int columns = std::min(grid.columns, MotionMap::mostColumns);
    const int rows = std::max(1, (grid.rows * columns + grid.columns / 2) / grid.columns);
    return {columns, std::min(grid.rows, rows)};
}

} // namespace

void MotionMap::begin(CellGrid grid) {
    if (!sums.empty())
        return;
    places = coarse(grid);
    sums.assign(std::size_t(places.count()), 0.0F);
}

void MotionMap::add(const CellBits& changed, double seconds) {
    const CellGrid grid = changed.grid;
    if (changed.isEmpty() || !(seconds > 0.0))
        return;
    begin(grid);
    CellBits moving(places);
    for (int row = 0; row < grid.rows; ++row) {
        if (changed.countInRow(row, 0, grid.columns - 1) == 0)
            continue;
        for (int column = 0; column < grid.columns; ++column) {
            if (changed.has(column, row))
                moving.add(placeAmong(column, grid.columns, places.columns),
                           placeAmong(row, grid.rows, places.rows));
        }
    }
    for (int row = 0; row < places.rows; ++row) {
        for (int column = 0; column < places.columns; ++column) {
            if (moving.has(column, row))
                sums[places.placeOf(column, row)] += float(seconds);
        }
    }
}

void MotionMap::add(const MotionMap& other) {
    if (other.sums.empty())
        return;
    begin(other.places);
    for (int row = 0; row < other.places.rows; ++row) {
        for (int column = 0; column < other.places.columns; ++column)
            sums[places.placeOf(placeAmong(column, other.places.columns, places.columns),
                                placeAmong(row, other.places.rows, places.rows))] +=
                float(other.seconds(column, row));
    }
}

double MotionMap::longest() const {
    const auto found = std::max_element(sums.cbegin(), sums.cend());
    return found == sums.cend() ? 0.0 : double(*found);
}
