// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellcomparison.h"
#include "cellgroups.h"
#include "picturecells.h"

#include <QtGlobal>

struct Frame;

/// The map of changed cells of each frame without small groups, or, where a frame is not looked at,
/// the map before.
class CellMeasure {
public:
    /// `skip`: frames between two that are looked at, of which the recording's first one is one.
    /// `firstNumber`: of the first frame to come, as the recording counts them.
    explicit CellMeasure(int skip, qint64 firstNumber = 0)
        : skip(skip)
        , number(firstNumber) {}

    /// The map of the next frame, at its time; valid until the next call. One that is skipped has
    /// that of the frame before it, and so does one whose plane 0 is unreadable.
    const CellMap& add(const Frame& frame);

private:
    const CellMap& last();

    int skip;
    qint64 number;
    PictureCells pictures;
    CellComparison comparison;
    CellGroups groups;
    CellMap map;
};
