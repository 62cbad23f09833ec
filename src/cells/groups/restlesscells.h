// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"

#include <cstdint>
#include <vector>

/// Finds the cells that change through most of a recording: burnt-in clocks, leaves, fans.
///
/// The recording is taken in stretches of a second. A cell is restless if it changes in more than
/// half of them, and so are those around it that touch it and each other and change in more than a
/// third. Where such cells reach over more than a little of the picture they are none: that is how
/// a busy road looks, or a square on which people walk about.
class RestlessCells {
public:
    /// The cells that have changed in the next picture, at `time` seconds as the stream counts
    /// them. Begins anew with another grid.
    void add(double time, const CellBits& changed);

    /// The restless cells, with their neighbours. Of no grid before a minute has been seen, which
    /// is too little to tell.
    CellBits found() const;

private:
    void beginAnew(CellGrid grid);
    void endStretch();
    CellBits changingIn(int share) const;

    CellBits inStretch; ///< has changed in the stretch that is open
    double begin = 0.0; ///< of that stretch, seconds
    bool isOpen = false;

    std::uint32_t stretches = 0;       ///< that are over
    std::vector<std::uint32_t> counts; ///< of each cell, in how many of them it has changed
};
