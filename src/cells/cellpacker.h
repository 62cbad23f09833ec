// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"
#include "cellcoding.h"
#include "celltiles.h"

/// Collects maps of one grid until they are packed.
class CellPacker {
public:
    /// Whether one more map can join them.
    bool takes(const CellMap& map) const;

    void add(const CellMap& map);

    int count() const { return maps; } ///< those included that are carried

    CellBlock packed() const { return packedBlock(collected); }

    void clear();

private:
    void begin(const CellMap& first);
    void addPlane(int plane, CellBits cells);
    void addRow(int plane, int row, const CellBits& cells);
    void addTiles(int plane, int first, std::uint64_t upper, std::uint64_t lower,
                  std::uint64_t changed);

    int maps = 0;
    TileGrid tiles;
    BlockMaps collected;
    std::array<CellBits, planeCount> last; ///< the planes of the last map
};
