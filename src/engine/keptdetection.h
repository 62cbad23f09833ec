// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionclient.h"
#include "measurement.h"

#include <functional>

/// Makes the handle of picture `index` of a measurement, 0 for its first one. Never null.
using PictureMaker = std::function<ClipPicturePointer(int index)>;

/// Decides on what was measured before and tells the client what `Detection` would tell it. False
/// if the client has cancelled that; an open clip was still reported.
bool decideAgain(const Measurement& measurement, const SegmentationOptions& options,
                 const PictureMaker& pictures, DetectionClient& client);
