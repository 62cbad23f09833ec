// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellpacker.h"

#include <algorithm>
#include <utility>

bool CellPacker::takes(const CellMap& map) const {
    const bool isRoom = map.isCarried || int(collected.pictures.size()) < mostBlockMaps;
    return maps == 0 || (map.grid == collected.grid && isRoom);
}

void CellPacker::add(const CellMap& map) {
    const bool isCarried = map.isCarried && maps > 0;
    if (maps++ == 0)
        begin(map);
    if (isCarried) {
        ++collected.pictures.back();
        return;
    }
    collected.pictures.push_back(1);
    const int steps = int(cellSteps.size());
    for (int step = 1; step <= steps; ++step)
        addPlane(step - 1, cellsFrom(map, step));
    CellBits brighter = last.front();
    if (map.brighter.grid == map.grid)
        brighter.keep(map.brighter);
    else
        brighter = CellBits(map.grid);
    addPlane(brighterPlane, std::move(brighter));
}

void CellPacker::begin(const CellMap& first) {
    collected.grid = first.grid;
    collected.isFirstCarried = first.isCarried;
    tiles = TileGrid(first.grid);
    last.fill(CellBits(first.grid));
}

void CellPacker::addPlane(int plane, CellBits cells) {
    CellBits& before = last[std::size_t(plane)];
    if (cells.words != before.words) {
        for (int row = 0; row < collected.grid.rows; row += tileRows)
            addRow(plane, row, cells);
    }
    before = std::move(cells);
}

/// Of the tiles whose upper row is `row`.
void CellPacker::addRow(int plane, int row, const CellBits& cells) {
    constexpr int tilesInWord = 64 / tileColumns;
    const CellBits& before = last[std::size_t(plane)];
    const bool hasLower = row + 1 < collected.grid.rows;
    for (int i = 0; i < cells.wordsPerRow; ++i) {
        const std::size_t upper =
            std::size_t(row) * std::size_t(cells.wordsPerRow) + std::size_t(i);
        const std::size_t lower = upper + std::size_t(cells.wordsPerRow);
        std::uint64_t changed = cells.words[upper] ^ before.words[upper];
        if (hasLower)
            changed |= cells.words[lower] ^ before.words[lower];
        const int first = row / tileRows * tiles.countInRow() + i * tilesInWord;
        addTiles(plane, first, cells.words[upper], hasLower ? cells.words[lower] : 0, changed);
    }
}

/// Those of a word of each row, of which the first tile is `first`.
void CellPacker::addTiles(int plane, int first, std::uint64_t upper, std::uint64_t lower,
                          std::uint64_t changed) {
    constexpr std::uint64_t row = (1U << tileColumns) - 1;
    const auto map = std::uint8_t(collected.pictures.size() - 1);
    while (changed != 0) {
        const int shift = __builtin_ctzll(changed) / tileColumns * tileColumns;
        const auto cells =
            std::uint8_t((upper >> shift & row) | (lower >> shift & row) << tileColumns);
        collected.changes[std::size_t(plane)].push_back(
            {std::uint16_t(first + shift / tileColumns), map, cells, 0});
        changed &= ~(row << shift);
    }
}

void CellPacker::clear() {
    maps = 0;
    collected.pictures.clear();
    for (auto& changes : collected.changes)
        changes.clear();
}
