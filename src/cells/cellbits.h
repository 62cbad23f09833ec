// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellgrid.h"

#include <cstdint>
#include <vector>

/// A set of cells. Each row begins with a word of its own; bit 0 of it is column 0. Bits behind the
/// last column are 0.
struct CellBits {
    CellGrid grid;
    int wordsPerRow = 0;
    std::vector<std::uint64_t> words;

    explicit CellBits(CellGrid grid = {}, bool isSet = false);

    std::size_t wordOf(int column, int row) const {
        return std::size_t(row) * std::size_t(wordsPerRow) + std::size_t(column / 64);
    }
    bool has(int column, int row) const {
        return (words[wordOf(column, row)] >> (column % 64) & 1U) != 0;
    }
    void add(int column, int row) {
        words[wordOf(column, row)] |= std::uint64_t(1) << (column % 64);
    }
    void remove(int column, int row) {
        words[wordOf(column, row)] &= ~(std::uint64_t(1) << (column % 64));
    }
    int count() const;
    bool isEmpty() const;

    /// How many of the columns `first` .. `last` of a row are in it.
    int countInRow(int row, int first, int last) const;

    /// Keeps those that are in `others` as well, which is of the same grid.
    void keep(const CellBits& others);

    /// Takes those away that are in `others`, which is of the same grid.
    void remove(const CellBits& others);
};

struct CellMap;

/// The cells of a map that have reached `step` (1..cellSteps.size()).
CellBits cellsFrom(const CellMap& map, int step);
