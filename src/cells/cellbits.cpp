// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellbits.h"

#include "cellmap.h"

#include <algorithm>

namespace {

constexpr int wordBits = 64;

/// Without the processor's own instruction, which not every one has, quicker than the library's.
int bitCount(std::uint64_t bits) {
    bits -= bits >> 1 & 0x5555555555555555U;
    bits = (bits & 0x3333333333333333U) + (bits >> 2 & 0x3333333333333333U);
    return int(((bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0FU) * 0x0101010101010101U >> 56);
}

constexpr std::uint64_t eachByte = 0x0101010101010101U;
constexpr std::uint64_t gatherBytes = 0x0102040810204080U; // bit 8 i goes to bit 56 + i

std::uint64_t eightBytes(const std::uint8_t* bytes) {
    std::uint64_t word = 0;
    for (int i = 0; i < 8; ++i)
        word |= std::uint64_t(bytes[i]) << (8 * i);
    return word;
}

/// Bit i tells whether cell i of eight has reached `step`: all are less than 128.
std::uint64_t eightFrom(const std::uint8_t* steps, int step) {
    const std::uint64_t raised = eightBytes(steps) + eachByte * std::uint64_t(128 - step);
    return (((raised >> 7) & eachByte) * gatherBytes) >> 56;
}

std::uint64_t wordFrom(const std::uint8_t* steps, int count, int step) {
    std::uint64_t word = 0;
    int cell = 0;
    for (; cell + 8 <= count; cell += 8)
        word |= eightFrom(steps + cell, step) << cell;
    for (; cell < count; ++cell)
        word |= std::uint64_t(steps[cell] >= step) << cell;
    return word;
}

} // namespace

CellBits::CellBits(CellGrid grid, bool isSet)
    : grid(grid)
    , wordsPerRow((grid.columns + 63) / 64)
    , words(std::size_t(wordsPerRow) * std::size_t(grid.rows), 0) {
    for (int row = 0; isSet && row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column)
            add(column, row);
    }
}

int CellBits::count() const {
    int count = 0;
    for (const std::uint64_t word : words)
        count += bitCount(word);
    return count;
}

bool CellBits::isEmpty() const {
    std::uint64_t any = 0;
    for (const std::uint64_t word : words)
        any |= word;
    return any == 0;
}

int CellBits::countInRow(int row, int first, int last) const {
    const std::uint64_t* inRow = words.data() + std::size_t(row) * std::size_t(wordsPerRow);
    const std::uint64_t* word = inRow + first / wordBits;
    const std::uint64_t* end = inRow + last / wordBits;
    const std::uint64_t fromFirst = ~std::uint64_t(0) << (first % wordBits);
    const std::uint64_t toLast = ~std::uint64_t(0) >> (wordBits - 1 - last % wordBits);
    if (word == end)
        return bitCount(*word & fromFirst & toLast);
    int count = bitCount(*word & fromFirst) + bitCount(*end & toLast);
    while (++word < end)
        count += bitCount(*word);
    return count;
}

void CellBits::keep(const CellBits& others) {
    for (std::size_t i = 0; i < words.size(); ++i)
        words[i] &= others.words[i];
}

void CellBits::remove(const CellBits& others) {
    for (std::size_t i = 0; i < words.size(); ++i)
        words[i] &= ~others.words[i];
}

CellBits cellsFrom(const CellMap& map, int step) {
    CellBits bits(map.grid);
    const std::uint8_t* steps = map.steps.data();
    std::uint64_t* words = bits.words.data();
    for (int row = 0; row < map.grid.rows; ++row) {
        for (int column = 0; column < map.grid.columns; column += 64)
            *words++ = wordFrom(steps + column, std::min(64, map.grid.columns - column), step);
        steps += map.grid.columns;
    }
    return bits;
}
