// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellmaps.h"

#include <algorithm>

const CellMap* CellMapsReader::next() {
    if (!goOn(1, int(cellSteps.size())))
        return nullptr;
    for (const UnpackedPlane& plane : planes) {
        for (int i = plane.begins[std::size_t(at)]; i < plane.begins[std::size_t(at + 1)]; ++i)
            changeSteps(plane.changes[std::size_t(i)]);
    }
    return &map;
}

const CellBits* CellMapsReader::next(int step) {
    if (!goOn(step, step))
        return nullptr;
    const UnpackedPlane& plane = planes.front();
    for (int i = plane.begins[std::size_t(at)]; i < plane.begins[std::size_t(at + 1)]; ++i)
        change(plane.changes[std::size_t(i)]);
    return &bits;
}

/// To the next map. False behind the last one.
bool CellMapsReader::goOn(int lowest, int highest) {
    if (++at < count)
        return true;
    if (nextBlock == blocks.size())
        return false;
    beginBlock(lowest, highest);
    return true;
}

void CellMapsReader::beginBlock(int lowest, int highest) {
    const CellBlock& block = *blocks[nextBlock++];
    at = 0;
    count = block.count;
    if (block.grid != map.grid || places.empty())
        beginGrid(block.grid);
    std::fill(map.steps.begin(), map.steps.end(), std::uint8_t(0));
    std::fill(bits.words.begin(), bits.words.end(), 0);
    setTiles = 0;
    planes.clear();
    for (int step = lowest; step <= highest; ++step)
        planes.push_back(unpackedPlane(block, step));
}

void CellMapsReader::beginGrid(CellGrid grid) {
    tiles = TileGrid(grid);
    bits = CellBits(grid);
    map.grid = grid;
    map.steps.assign(std::size_t(grid.count()), 0);
    places.clear();
    for (int tile = 0; tile < tiles.count(); ++tile) {
        const int column = tiles.columnOf(tile);
        places.push_back({tiles.rowOf(tile) * bits.wordsPerRow + column / 64, column % 64});
    }
}

void CellMapsReader::change(const TileChange& tile) {
    constexpr unsigned upper = (1U << tileColumns) - 1;
    const Place place = places[tile.tile];
    bits.words[std::size_t(place.word)] ^= std::uint64_t(tile.flipped & upper) << place.shift;
    const unsigned lower = tile.flipped >> tileColumns;
    if (lower != 0)
        bits.words[std::size_t(place.word + bits.wordsPerRow)] ^= std::uint64_t(lower)
                                                                  << place.shift;
    if (tile.cells == 0)
        --setTiles;
    else if (tile.cells == tile.flipped) // it had none
        ++setTiles;
}

void CellMapsReader::changeSteps(const TileChange& tile) {
    const int first = tiles.rowOf(tile.tile) * map.grid.columns + tiles.columnOf(tile.tile);
    for (int bit = 0; bit < tileColumns * tileRows; ++bit) {
        if ((tile.flipped >> bit & 1U) == 0)
            continue;
        const int cell = first + bit / tileColumns * map.grid.columns + bit % tileColumns;
        map.steps[std::size_t(cell)] += (tile.cells >> bit & 1U) != 0 ? 1 : -1;
    }
}
