// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"
#include "cellblock.h"
#include "cellmap.h"
#include "cellpacker.h"

/// The maps of one recording, one for each picture after its first one, in order: packed as they
/// come, so that an hour takes some megabytes.
class CellMaps {
public:
    void append(const CellMap& map);

    /// Those of `others` behind these.
    void append(const CellMaps& others);

    /// Those of a block behind these.
    void append(CellBlockPointer block);

    int count() const { return maps; }

    /// All of them.
    std::vector<CellBlockPointer> blocks() const;

    /// The last of them; without cells where there are none.
    CellMap last() const;

private:
    void closeBlock();

    std::vector<CellBlockPointer> closed;
    CellPacker open;
    int maps = 0;
};

/// Reads maps in their order, all steps of them or the cells of one step alone, which is much
/// quicker.
class CellMapsReader {
public:
    /// What is appended to `maps` later is not read.
    explicit CellMapsReader(const CellMaps& maps)
        : blocks(maps.blocks()) {}

    /// The next map; null behind the last one. Valid until the next call.
    const CellMap* next();

    /// The cells of the next map that have reached `step` (1..cellSteps.size(), the same in all
    /// calls, none of which is for all steps); null behind the last one. Valid until the next call.
    const CellBits* next(int step);

    /// Whether there was no such cell in it, without looking at it.
    bool isQuiet() const { return setTiles == 0; }

private:
    /// Where the first cell of a tile is in the words of a set.
    struct Place {
        int word;
        int shift;
    };

    bool goOn(int lowest, int highest);
    void beginBlock(int lowest, int highest);
    void beginGrid(CellGrid grid);
    void change(const TileChange& tile);
    void changeSteps(const TileChange& tile);

    std::vector<CellBlockPointer> blocks;
    std::size_t nextBlock = 0;
    int at = -1;                       ///< the current map in its block
    int count = 0;                     ///< of maps in it
    std::vector<UnpackedPlane> planes; ///< of the block: those of the steps that are asked for
    TileGrid tiles;
    std::vector<Place> places;
    int setTiles = 0; ///< that have a cell
    CellBits bits;
    CellMap map;
};
