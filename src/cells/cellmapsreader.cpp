// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellmaps.h"

#include <algorithm>

namespace {

/// Calls `take` with each change of a map.
template<typename Take>
void forEachChange(const UnpackedPlane& plane, int map, const Take& take) {
    const int end = plane.begins[std::size_t(map) + 1];
    for (int i = plane.begins[std::size_t(map)]; i < end; ++i)
        take(plane.changes[std::size_t(i)]);
}

} // namespace

const CellMap* CellMapsReader::next() {
    if (!goOn())
        return nullptr;
    if (map.isCarried && !steps.empty())
        return &map;
    unpackSteps(1, int(cellSteps.size()));
    for (const UnpackedPlane& plane : steps)
        forEachChange(plane, at, [this](const TileChange& tile) { changeSteps(tile); });
    brighter();
    return &map;
}

const CellBits* CellMapsReader::next(int wanted) {
    step = wanted;
    if (!goOn())
        return nullptr;
    if (map.isCarried && !steps.empty())
        return &bits;
    unpackSteps(step, step);
    forEachChange(steps.front(), at, [this](const TileChange& tile) {
        flip(tile, bits);
        count(tile);
    });
    return &bits;
}

const CellBits& CellMapsReader::brighter() {
    readBeside(signs, brighterPlane, map.brighter);
    return map.brighter;
}

const CellBits& CellMapsReader::weaker() {
    if (step == 1)
        return bits;
    readBeside(weakerStep, step - 2, weakerBits);
    return weakerBits;
}

/// Up to the current map.
void CellMapsReader::readBeside(Beside& beside, int plane, CellBits& cells) {
    if (block && beside.read == notUnpacked) {
        beside.plane = unpackedPlane(*block, plane);
        beside.read = 0;
    }
    for (; beside.read <= at && block; ++beside.read)
        forEachChange(beside.plane, beside.read,
                      [&](const TileChange& tile) { flip(tile, cells); });
}

/// To the next map. False behind the last one.
bool CellMapsReader::goOn() {
    map.isCarried = left > 0;
    if (left > 0) {
        --left;
        return true;
    }
    if (block && at + 1 < int(runs.pictures.size())) {
        ++at;
    } else {
        if (nextBlock == blocks.size())
            return false;
        beginBlock();
    }
    left = runs.pictures[std::size_t(at)] - 1;
    return true;
}

void CellMapsReader::beginBlock() {
    block = blocks[nextBlock++].read();
    at = 0;
    runs = unpackedRuns(*block);
    steps.clear();
    signs.read = notUnpacked;
    weakerStep.read = notUnpacked;
    if (block->grid != map.grid || places.empty())
        beginGrid(block->grid);
    std::fill(map.steps.begin(), map.steps.end(), std::uint8_t(0));
    std::fill(map.brighter.words.begin(), map.brighter.words.end(), 0);
    std::fill(bits.words.begin(), bits.words.end(), 0);
    std::fill(weakerBits.words.begin(), weakerBits.words.end(), 0);
    map.isCarried = runs.isFirstCarried;
    setTiles = 0;
}

void CellMapsReader::beginGrid(CellGrid grid) {
    tiles = TileGrid(grid);
    bits = CellBits(grid);
    weakerBits = CellBits(grid);
    map = CellMap(grid);
    map.brighter = CellBits(grid);
    places.clear();
    for (int tile = 0; tile < tiles.count(); ++tile) {
        const int column = tiles.columnOf(tile);
        places.push_back({tiles.rowOf(tile) * bits.wordsPerRow + column / 64, column % 64});
    }
}

/// Unless they are.
void CellMapsReader::unpackSteps(int lowest, int highest) {
    if (!steps.empty())
        return;
    for (int step = lowest; step <= highest; ++step)
        steps.push_back(unpackedPlane(*block, step - 1));
}

void CellMapsReader::flip(const TileChange& tile, CellBits& cells) const {
    constexpr unsigned row = (1U << tileColumns) - 1;
    const Place place = places[tile.tile];
    cells.words[std::size_t(place.word)] ^= std::uint64_t(tile.flipped & row) << place.shift;
    const unsigned lower = tile.flipped >> tileColumns;
    if (lower != 0)
        cells.words[std::size_t(place.word) + std::size_t(cells.wordsPerRow)] ^=
            std::uint64_t(lower) << place.shift;
}

void CellMapsReader::count(const TileChange& tile) {
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
