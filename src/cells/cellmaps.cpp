// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellmaps.h"

#include <utility>

void CellMaps::append(const CellMap& map) {
    if (!open.takes(map))
        closeBlock();
    open.add(map);
    ++maps;
}

void CellMaps::append(const CellMaps& others) {
    closeBlock();
    closed.insert(closed.end(), others.closed.begin(), others.closed.end());
    open = others.open;
    maps += others.maps;
}

void CellMaps::append(CellBlockPointer block) {
    closeBlock();
    maps += block->count;
    closed.push_back(std::move(block));
}

std::vector<CellBlockPointer> CellMaps::blocks() const {
    std::vector<CellBlockPointer> blocks = closed;
    if (open.count() > 0)
        blocks.push_back(std::make_shared<const CellBlock>(open.packed()));
    return blocks;
}

CellMap CellMaps::last() const {
    CellMaps end;
    if (maps > 0)
        end.append(blocks().back());
    CellMapsReader reader(end);
    CellMap last;
    while (const CellMap* map = reader.next())
        last = *map;
    return last;
}

void CellMaps::closeBlock() {
    if (open.count() == 0)
        return;
    closed.push_back(std::make_shared<const CellBlock>(open.packed()));
    open.clear();
}
