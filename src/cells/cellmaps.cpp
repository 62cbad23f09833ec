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
    for (const StoredBlock& block : others.closed)
        store(block);
    open = others.open;
    maps += others.maps;
}

void CellMaps::append(StoredBlock block) {
    closeBlock();
    maps += block.count();
    store(std::move(block));
}

std::vector<StoredBlock> CellMaps::blocks() const {
    std::vector<StoredBlock> blocks = closed;
    if (open.count() > 0)
        blocks.emplace_back(std::make_shared<const CellBlock>(open.packed()));
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
    store(StoredBlock(std::make_shared<const CellBlock>(open.packed())));
    open.clear();
}

void CellMaps::store(StoredBlock block) {
    if (inMemory + block.size() > mostMapsInMemory)
        block.putAside();
    if (block.isInMemory())
        inMemory += block.size();
    closed.push_back(std::move(block));
}
