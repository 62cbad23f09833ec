// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"

#include <QRectF>

/// The box of what moves in a picture.
struct MotionBox {
    QRectF box;   ///< in shares of the picture, from 0 to 1; empty: nothing moves
    int area = 0; ///< cells of the largest group
};

/// The box around the largest group of changed cells, and around those at least a quarter as large.
MotionBox motionBox(const CellBits& changed);
