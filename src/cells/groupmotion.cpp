// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "groupmotion.h"

#include <algorithm>
#include <utility>

namespace {

int groupAt(CellBits& left, int column, int row) {
    std::vector<std::pair<int, int>> reached{{column, row}};
    left.words[std::size_t(row * left.wordsPerRow + column / 64)] &=
        ~(std::uint64_t(1) << (column % 64));
    for (std::size_t i = 0; i < reached.size(); ++i) {
        const auto [x, y] = reached[i];
        for (int v = std::max(0, y - 1); v <= std::min(left.grid.rows - 1, y + 1); ++v) {
            for (int u = std::max(0, x - 1); u <= std::min(left.grid.columns - 1, x + 1); ++u) {
                if (!left.has(u, v))
                    continue;
                left.words[std::size_t(v * left.wordsPerRow + u / 64)] &=
                    ~(std::uint64_t(1) << (u % 64));
                reached.emplace_back(u, v);
            }
        }
    }
    return int(reached.size());
}

} // namespace

float GroupMotion::add(double time, const CellBits& changed) {
    static_cast<void>(time);
    CellBits left = changed;
    int largest = 0;
    for (int row = 0; row < left.grid.rows; ++row) {
        for (int column = 0; column < left.grid.columns; ++column) {
            if (left.has(column, row))
                largest = std::max(largest, groupAt(left, column, row));
        }
    }
    return left.grid.count() == 0 ? 0.0F : float(100.0 * largest / left.grid.count());
}
