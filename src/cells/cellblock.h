// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellgrid.h"

#include <cstdint>
#include <memory>
#include <vector>

constexpr int mostBlockMaps = 250; ///< that are not carried: what is packed together, and unpacked

/// Maps of one grid that follow each other, packed (cellcoding.h).
struct CellBlock {
    CellGrid grid;
    int count = 0; ///< of maps, those included that are carried; 1 or more
    std::vector<std::uint8_t> bytes;
};

using CellBlockPointer = std::shared_ptr<const CellBlock>;
