// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellpacker.h"

void CellPacker::begin(CellGrid first) {
    grid = first;
    tiles = TileGrid(grid);
    last.assign(std::size_t(tiles.count()), 0);
}

void CellPacker::add(const CellMap& map) {
    if (maps == 0)
        begin(map.grid);
    tiles.read(map, next);
    for (std::size_t tile = 0; tile < next.size(); ++tile) {
        if (next[tile] == last[tile])
            continue;
        for (int step = 1; step <= int(planes.size()); ++step) {
            const std::uint8_t cells = cellsThatReach(next[tile], step);
            if (cells != cellsThatReach(last[tile], step))
                planes[std::size_t(step - 1)].push_back(
                    {std::uint16_t(tile), std::uint8_t(maps), cells, 0});
        }
    }
    last.swap(next);
    ++maps;
}

void CellPacker::clear() {
    maps = 0;
    for (auto& plane : planes)
        plane.clear();
}
