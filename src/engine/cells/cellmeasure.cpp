// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellmeasure.h"

#include "cellthinning.h"
#include "frame.h"
#include "motionseries.h"

const CellMap& CellMeasure::add(const Frame& frame) {
    if (skippedFrom(number++, skip) > 0)
        return last();
    CellPicturePointer cells = frame.picture ? pictures.reduce(*frame.picture) : frame.cells;
    if (!cells)
        return last();
    const CellMap& made = comparison.add(frame.time, std::move(cells));
    if (made.isCarried)
        return last();
    map = made;
    removeSmallGroups(map, groups);
    return map;
}

const CellMap& CellMeasure::last() {
    map.isCarried = true;
    return map;
}
