// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellsfile.h"

#include <optional>

/// The head of a file with maps, which writer and reader agree on; numbers with their lowest byte
/// first.

constexpr char cellsFormatName[] = "kestrova cells \n"; ///< without its end: 16 bytes
constexpr int cellsFormatNumber = 1;

constexpr int cellsNameBytes = 16;
constexpr int cellsFixedBytes = cellsNameBytes + 4 * 4 + 32; ///< before the list of blocks
constexpr int cellsEntryBytes = 20;                          ///< each of the list
constexpr int cellsDigestBytes = 32;                         ///< behind it, of all before

/// One block, as the list has it.
struct CellsEntry {
    CellGrid grid;
    int count = 0; ///< of maps
    qint64 bytes = 0;
    quint64 sum = 0; ///< of them (StoredBlock)
};

/// The most bytes that a block's maps may take: twelve bits a cell, and some to begin with. That is
/// room for maps in which all changes each time; few that are real take a fiftieth of it.
qint64 mostBytesOf(CellGrid grid, int count);

/// All before the blocks.
QByteArray cellsHead(const CellsOrigin& origin, const std::vector<StoredBlock>& blocks);

/// Reads the first `cellsFixedBytes` of a head: answers what is wrong, for a person, empty if
/// nothing is; `blocks` gets how many there are, no more than there are maps.
QString readFixedHead(const QByteArray& head, const CellsOrigin& origin, int& blocks);

/// Reads one entry; nothing where there can be none like it.
std::optional<CellsEntry> readEntry(const uchar* bytes);
