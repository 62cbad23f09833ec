// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"

#include <vector>

/// Finds the cells that change through most of a recording: burnt-in clocks, leaves, fans.
class RestlessCells {
public:
    /// The cells that have changed in the next picture, at `time` seconds as the stream counts
    /// them.
    void add(double time, const CellBits& changed);

    /// Those that are restless, with their neighbours; empty (of no grid) before the first picture.
    CellBits found() const;

private:
    CellBits cells;
};
