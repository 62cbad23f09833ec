// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellpicture.h"
#include "decodedframe.h"
#include "lumaplane.h"

/// Reduces decoded pictures to cells, on one thread. Throws nothing but for want of memory.
class PictureCells {
public:
    /// Null if the picture has no readable plane 0.
    CellPicturePointer reduce(const DecodedFrame& picture);

private:
    LumaPlane plane;
};
