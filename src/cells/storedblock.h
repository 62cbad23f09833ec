// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "asidefile.h"
#include "cellblock.h"

/// A block that lies in memory or in a file. Copies share it.
class StoredBlock {
public:
    /// `file`: where its bytes lie as well; null: nowhere.
    explicit StoredBlock(CellBlockPointer block, FilePlacePointer file = nullptr);

    CellGrid grid() const { return blockGrid; }
    int count() const { return maps; }               ///< of maps
    std::size_t size() const { return bytes; }       ///< in bytes
    std::uint64_t sum() const { return sumOfBytes; } ///< of them (sumOf)

    bool isInMemory() const { return block != nullptr; }

    /// To a file; it stays in memory where there is none, or no room.
    void putAside();

    /// The block, read anew where it lies in a file. Throws std::bad_alloc if it cannot be had as
    /// it was: what held it in place of memory has failed.
    CellBlockPointer read() const;

private:
    CellGrid blockGrid;
    int maps;
    std::size_t bytes;
    std::uint64_t sumOfBytes;
    CellBlockPointer block; ///< null: in the file alone
    FilePlacePointer file;
};
