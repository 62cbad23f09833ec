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
/// Each step is by itself, so that one can be unpacked alone: a plane in which the cells are set
/// that have reached it. A plane is what changes in it from map to map, tile by tile (celltiles.h),
/// from no cell at all before the block's first map.

/// A tile that is another than in the map before.
struct TileChange {
    std::uint16_t tile;
    std::uint8_t map;     ///< in the block
    std::uint8_t cells;   ///< it has from now on
    std::uint8_t flipped; ///< those that it did not have, and those that it has no longer
};

/// The changes of each step, in any order in which those of one tile go by their maps.
using PlaneChanges = std::array<std::vector<TileChange>, cellSteps.size()>;

/// Packs them: `count` maps of one grid. `flipped` need not be set.
CellBlock packedBlock(CellGrid grid, int count, const PlaneChanges& planes);

/// The changes of one step (1..cellSteps.size()), by map and then by tile; `begins` has where those
/// of each map begin, and their end. A block that was not made by `packedBlock`, whatever its bytes
/// are, gives some changes inside its grid or none, and takes no more memory than others.
struct UnpackedPlane {
    std::vector<TileChange> changes;
    std::vector<int> begins;
};
UnpackedPlane unpackedPlane(const CellBlock& block, int step);
