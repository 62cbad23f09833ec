// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellmaps.h"

void CellMaps::append(const CellMap& map) {
    maps.push_back(map);
}

void CellMaps::append(const CellMaps& others) {
    maps.insert(maps.end(), others.maps.begin(), others.maps.end());
}

const CellMap* CellMapsReader::next() {
    return at < maps.maps.size() ? &maps.maps[at++] : nullptr;
}

const CellBits* CellMapsReader::next(int step) {
    const CellMap* map = next();
    if (!map)
        return nullptr;
    bits = cellsFrom(*map, step);
    isEmpty = bits.count() == 0;
    return &bits;
}
