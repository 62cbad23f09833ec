// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "storedblock.h"

#include "blocksum.h"

#include <new>
#include <utility>

StoredBlock::StoredBlock(CellBlockPointer block, FilePlacePointer file)
    : blockGrid(block->grid)
    , maps(block->count)
    , bytes(block->bytes.size())
    , sumOfBytes(sumOf(block->bytes.data(), block->bytes.size()))
    , block(std::move(block))
    , file(std::move(file)) {}

void StoredBlock::putAside() {
    if (!block)
        return;
    if (!file)
        file = AsideFile::instance().put(block->bytes);
    if (file)
        block.reset();
}

CellBlockPointer StoredBlock::read() const {
    if (block)
        return block;
    CellBlock again{blockGrid, maps, {}};
    if (!readAt(*file, again.bytes) || sumOf(again.bytes.data(), again.bytes.size()) != sumOfBytes)
        throw std::bad_alloc();
    return std::make_shared<const CellBlock>(std::move(again));
}
