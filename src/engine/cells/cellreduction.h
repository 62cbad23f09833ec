// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellpicture.h"
#include "lumaplane.h"

#include <opencv2/core/mat.hpp>

/// Reduces 8-bit planes (CV_8UC1) to cells: each is the mean of its pixels, rounded to a sixteenth
/// of a level. Cell c of n along a side of s pixels has those from c s / n to before (c + 1) s / n.
/// Halves are rounded up. Exact, and the same on every machine, of planes of up to 2^28 pixels; no
/// decoder gives larger ones.
CellPicturePointer reduceToCells(const cv::Mat& plane);

/// The same of plane 0 of a decoded picture, which `plane` is used to read; null if it has no
/// readable one. Each thread needs a `plane` of its own.
CellPicturePointer cellsOf(const DecodedFrame& frame, LumaPlane& plane);
