// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellmap.h"

// How the shares of changed cells become clips, unless a person asks otherwise.

constexpr double cellsThreshold = 0.7; ///< percent of the picture that is motion
constexpr double cellsMinimum = 2.0;   ///< seconds; length of the voting window

/// The number by which a person asks for a step: more for fainter changes, 1..cellSteps.size().
constexpr int sensitivityOf(int step) {
    return int(cellSteps.size()) + 1 - step;
}

/// The step that a person asks for with that number.
constexpr int stepOf(int sensitivity) {
    return int(cellSteps.size()) + 1 - sensitivity;
}
