// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"
#include "cellmap.h"
#include "cellpacker.h"
#include "storedblock.h"

/// What the packed maps of a recording may take in memory, in bytes.
constexpr std::size_t mostMapsInMemory = 1000 * 1000;

/// The maps of one recording, one for each picture after its first one, in order: packed as they
/// come, so that an hour takes some megabytes. What is beyond the first of these lies in a file
/// (StoredBlock).
///
/// What reads or joins them throws std::bad_alloc where that file fails.
class CellMaps {
public:
    void append(const CellMap& map);

    /// Those of `others` behind these.
    void append(const CellMaps& others);

    /// Those of a block behind these.
    void append(StoredBlock block);

    int count() const { return maps; }

    /// All of them.
    std::vector<StoredBlock> blocks() const;

    /// The last of them; without cells where there are none.
    CellMap last() const;

private:
    void closeBlock();
    void store(StoredBlock block);

    std::vector<StoredBlock> closed;
    std::size_t inMemory = 0; ///< bytes of those
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

    /// Whether it was that of the picture before.
    bool isCarried() const { return map.isCarried; }

    /// Its cells that have become brighter, of any step but 0. Valid until the next call.
    const CellBits& brighter();

    /// Its cells that have reached the step before the one that is asked for, or the first one.
    /// Valid until the next call.
    const CellBits& weaker();

private:
    /// Where the first cell of a tile is in the words of a set.
    struct Place {
        int word;
        int shift;
    };

    /// A plane that is read when somebody asks for it.
    struct Beside {
        UnpackedPlane plane;
        int read = notUnpacked; ///< maps
    };

    static constexpr int notUnpacked = -1;

    bool goOn();
    void beginBlock();
    void beginGrid(CellGrid grid);
    void readBeside(Beside& beside, int plane, CellBits& cells);
    void unpackSteps(int lowest, int highest);
    void flip(const TileChange& tile, CellBits& cells) const;
    void count(const TileChange& tile);
    void changeSteps(const TileChange& tile);

    std::vector<StoredBlock> blocks;
    std::size_t nextBlock = 0;

    // Of the current block.
    CellBlockPointer block;
    UnpackedRuns runs;
    std::vector<UnpackedPlane> steps; ///< those that are asked for; empty: not unpacked yet
    Beside signs;
    Beside weakerStep;
    int at = 0;   ///< the current map without those that are carried
    int left = 0; ///< pictures that it serves behind the current one

    TileGrid tiles;
    std::vector<Place> places;
    int setTiles = 0; ///< that have a cell
    int step = 1;     ///< that is asked for
    CellBits bits;
    CellBits weakerBits; ///< of the step before it
    CellMap map;
};
