// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionbox.h"

#include "cellgroups.h"
#include "cellmap.h"

#include <algorithm>

namespace {

constexpr int leastShare = 4; ///< one in so many of the largest group's cells

QRectF boxOf(const CellGroup& group, CellGrid grid) {
    return {double(group.left) / grid.columns, double(group.top) / grid.rows,
            double(group.right + 1 - group.left) / grid.columns,
            double(group.bottom + 1 - group.top) / grid.rows};
}

} // namespace

MotionBox motionBox(const CellBits& changed) {
    CellGroups finder;
    MotionBox found;
    const std::vector<CellGroup>& groups = finder.find(changed, leastGroup);
    for (const CellGroup& group : groups)
        found.area = std::max(found.area, group.area);
    for (const CellGroup& group : groups) {
        if (leastShare * group.area >= found.area)
            found.box |= boxOf(group, changed.grid);
    }
    return found;
}
