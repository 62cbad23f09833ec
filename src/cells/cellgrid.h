// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>

/// How a picture is divided into cells, row by row.
struct CellGrid {
    int columns = 0;
    int rows = 0;

    int count() const { return columns * rows; }

    /// Of a cell among all, row by row.
    std::size_t placeOf(int column, int row) const {
        return std::size_t(row) * std::size_t(columns) + std::size_t(column);
    }
    bool operator==(const CellGrid& other) const {
        return columns == other.columns && rows == other.rows;
    }
    bool operator!=(const CellGrid& other) const { return !(*this == other); }
};

constexpr int mostCellColumns = 160;
constexpr int mostCellRows = 640; ///< of pictures that are four times as high as wide, and higher

/// The grid of pictures of `width` x `height` pixels: as many columns as there are, up to 160, and
/// rows by the aspect, so that cells are about square. Empty without pixels.
CellGrid cellGridOf(int width, int height);

/// Where cell `cell` of `cells` along a side of `pixels` begins. It ends where the next one begins.
constexpr int cellBorder(int cell, int cells, int pixels) {
    return int(std::int64_t(cell) * pixels / cells);
}
