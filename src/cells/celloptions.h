// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellmap.h"

/// How motion is told from maps of changed cells.
struct CellOptions {
    int step = changedStep;         ///< 1..cellSteps.size(): from this strength on a cell counts
    bool isRestlessIgnored = false; ///< leaves out cells that change through most of a recording
};
