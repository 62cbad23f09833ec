// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellmeasure.h"

#include "frame.h"
#include "motionseries.h"

const CellMap& CellMeasure::add(const Frame& frame) {
    if (skippedFrom(number++, skip) > 0)
        return comparison.last();
    CellPicturePointer cells = frame.picture ? pictures.reduce(*frame.picture) : frame.cells;
    return cells ? comparison.add(frame.time, std::move(cells)) : comparison.last();
}
