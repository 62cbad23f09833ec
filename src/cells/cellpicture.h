// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellgrid.h"

#include <cstdint>
#include <memory>
#include <vector>

/// A picture reduced to cells.
struct CellPicture {
    CellGrid grid;
    std::vector<std::uint16_t> levels; ///< row by row: the mean of the cell's pixels, in sixteenths
};

using CellPicturePointer = std::shared_ptr<const CellPicture>;
