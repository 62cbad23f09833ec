// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "region.h"

/// How the motion between two pictures is measured.
struct MeasureOptions {
    int pixelThreshold = 35; ///< 0..255; a pixel that differs by this or less counts as unchanged
    int skip = 0;            ///< frames between two measurements (skippedFrom), 0 or more
    RegionOfInterest region;
};
