// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "picturecells.h"

#include "cellreduction.h"
#include "opencvfailure.h"

CellPicturePointer PictureCells::reduce(const DecodedFrame& picture) {
    try {
        return cellsOf(picture, plane);
    } catch (const cv::Exception& exception) {
        noteFailure(exception);
        return nullptr;
    }
}
