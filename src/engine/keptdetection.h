// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionfindings.h"

#include <functional>

/// Makes the handle of picture `index` of a measurement, 0 for its first one. Never null.
using PictureMaker = std::function<ClipPicturePointer(int index)>;

/// Decides on what was measured before and tells what `Detection` would tell. False if that was
/// interrupted; an open clip was still reported.
bool decideAgain(const Measurement& measurement, const SegmentationOptions& options,
                 const PictureMaker& pictures, const std::function<bool()>& isInterrupted,
                 DetectionFindings& findings);

/// The same for clips alone, without pictures.
QVector<DetectedClip> clipsOf(const Measurement& measurement, const SegmentationOptions& options);
