// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellscores.h"

#include "cellmap.h"

#include <utility>

CellScores::CellScores(RegionOfInterest region, QSize pictures, const CellOptions& options,
                       CellBits restless)
    : groups(std::move(region), pictures, options, std::move(restless)) {}

MotionScore CellScores::add(double time, const CellMap& map) {
    if (map.isCarried)
        return score;
    groups.fit(map.grid);
    return add(time, groups.find(map), groups.whole());
}

MotionScore CellScores::add(double time, const SeenGroups& seen, int whole) {
    const int moving = motion.add(time, seen);
    score.value = whole == 0 ? 0.0F : float(100.0 * moving / whole);
    return score;
}
