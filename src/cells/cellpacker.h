// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellcoding.h"
#include "celltiles.h"

/// Collects maps of one grid until they are packed.
class CellPacker {
public:
    /// Whether one more map of this grid can join them.
    bool takes(CellGrid other) const {
        return maps == 0 || (other == grid && maps < mostBlockMaps);
    }

    void add(const CellMap& map);

    int count() const { return maps; }

    CellBlock packed() const { return packedBlock(grid, maps, planes); }

    void clear();

private:
    void begin(CellGrid first);

    CellGrid grid;
    TileGrid tiles;
    int maps = 0;
    std::vector<std::uint64_t> last; ///< steps of each tile in the last map
    std::vector<std::uint64_t> next;
    PlaneChanges planes;
};
