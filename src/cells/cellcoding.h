// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellblock.h"
#include "cellmap.h"

#include <array>
#include <cstdint>
#include <vector>

/// How the maps of a block are packed.
///
/// Maps that are carried are counted. Of the others each step is by itself, so that one can be
/// unpacked alone: a plane in which the cells are set that have reached it. One more plane has the
/// cells that have become brighter. A plane is what changes in it from map to map, tile by tile
/// (celltiles.h), from no cell at all before the block's first map.

constexpr int brighterPlane = int(cellSteps.size()); ///< behind those of the steps
constexpr int planeCount = brighterPlane + 1;

/// A tile that is another than in the map before.
struct TileChange {
    std::uint16_t tile;
    std::uint8_t map;     ///< in the block, without those that are carried
    std::uint8_t cells;   ///< it has from now on
    std::uint8_t flipped; ///< those that it did not have, and those that it has no longer
};

/// Maps of one grid that follow each other.
struct BlockMaps {
    CellGrid grid;
    bool isFirstCarried = false; ///< the first is that of the block before
    std::vector<int> pictures;   ///< that each map serves that is not carried: 1 or more

    /// The changes of each plane, in any order in which those of one tile go by their maps;
    /// `flipped` need not be set.
    std::array<std::vector<TileChange>, planeCount> changes;
};

CellBlock packedBlock(const BlockMaps& maps);

// A block that was not made by `packedBlock`, whatever its bytes are, gives some maps of its grid,
// and takes no more memory than others.

/// How many pictures each map serves that is not carried; together as many as the block has.
struct UnpackedRuns {
    bool isFirstCarried = false;
    std::vector<int> pictures;
};
UnpackedRuns unpackedRuns(const CellBlock& block);

/// The changes of one plane (0..planeCount - 1), by map and then by tile; `begins` has where those
/// of each map begin, and their end.
struct UnpackedPlane {
    std::vector<TileChange> changes;
    std::vector<int> begins;
};
UnpackedPlane unpackedPlane(const CellBlock& block, int plane);
