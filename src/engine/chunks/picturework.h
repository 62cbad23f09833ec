// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellpicture.h"
#include "picturecomparison.h"
#include "picturekeeper.h"

/// Reduces a picture to cells; null if it has no readable plane 0.
using PictureReduction = std::function<CellPicturePointer(const DecodedFrame& picture)>;

/// Makes a reduction for one thread; any thread may ask for one.
using PictureReductionMaker = std::function<PictureReduction()>;

/// What is done with pictures on the threads that decode them.
struct PictureWork {
    PictureComparisonMaker comparison;
    PictureReductionMaker reduction; ///< null: nobody wants cells
    PictureKeeperMaker keeper;       ///< null: no small pictures are made
};
