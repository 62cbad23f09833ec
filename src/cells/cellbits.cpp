// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellbits.h"

#include <bitset>

CellBits::CellBits(CellGrid grid, bool isSet)
    : grid(grid)
    , wordsPerRow((grid.columns + 63) / 64)
    , words(std::size_t(wordsPerRow) * std::size_t(grid.rows), 0) {
    for (int row = 0; isSet && row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column)
            add(column, row);
    }
}

int CellBits::count() const {
    std::size_t count = 0;
    for (const std::uint64_t word : words)
        count += std::bitset<64>(word).count();
    return int(count);
}

void CellBits::keep(const CellBits& others) {
    for (std::size_t i = 0; i < words.size(); ++i)
        words[i] &= others.words[i];
}

void CellBits::remove(const CellBits& others) {
    for (std::size_t i = 0; i < words.size(); ++i)
        words[i] &= ~others.words[i];
}

CellBits cellsFrom(const CellMap& map, int step) {
    CellBits bits(map.grid);
    std::size_t cell = 0;
    for (int row = 0; row < map.grid.rows; ++row) {
        for (int column = 0; column < map.grid.columns; ++column) {
            if (map.steps[cell++] >= step)
                bits.add(column, row);
        }
    }
    return bits;
}
