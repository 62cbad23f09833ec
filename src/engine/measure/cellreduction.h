// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellpicture.h"

#include <opencv2/core/mat.hpp>

/// Reduces 8-bit planes (CV_8UC1) to cells: each is the mean of its pixels, rounded to a sixteenth
/// of a level. Cell c of n along a side of s pixels has those from c s / n to before (c + 1) s / n.
/// Exact: the same on every machine.
CellPicturePointer reduceToCells(const cv::Mat& plane);
