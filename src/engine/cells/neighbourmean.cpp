// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "neighbourmean.h"

#include <algorithm>

namespace {

constexpr int offset = 1 << 15; // that makes all means positive, and their rounding the same
constexpr int cells = 9;
constexpr float ninth = 1.0F / 9.0F; // exact of what is below: see the means of a history

static_assert(2 * offset * cells < 1 << 22);

/// Of nine numbers, from their sum.
std::int16_t meanOf(int sum) {
    const int positive = sum + offset * cells + cells / 2;
    return std::int16_t(int((float(positive) + 0.5F) * ninth) - offset);
}

/// Adds up three rows, and continues the sums by one on both sides.
void addRows(const std::int16_t* above, const std::int16_t* row, const std::int16_t* below,
             std::vector<int>& sums) {
    const std::size_t columns = sums.size() - 2;
    for (std::size_t i = 0; i < columns; ++i)
        sums[i + 1] = above[i] + row[i] + below[i];
    sums.front() = sums[1];
    sums.back() = sums[columns];
}

} // namespace

void averageNeighbours(const std::vector<std::int16_t>& numbers, CellGrid grid,
                       std::vector<std::int16_t>& means) {
    means.resize(numbers.size());
    std::vector<int> sums(std::size_t(grid.columns + 2));
    const auto rowAt = [&](int row) {
        return numbers.data() + std::clamp(row, 0, grid.rows - 1) * grid.columns;
    };
    for (int row = 0; row < grid.rows; ++row) {
        addRows(rowAt(row - 1), rowAt(row), rowAt(row + 1), sums);
        std::int16_t* mean = &means[grid.placeOf(0, row)];
        for (std::size_t i = 0; i < std::size_t(grid.columns); ++i)
            mean[i] = meanOf(sums[i] + sums[i + 1] + sums[i + 2]);
    }
}
