// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "keptdetection.h"
#include "measurement.h"
#include "timerange.h"

#include <QVector>

/// Where a recording is to be searched exactly after a look at its key frames alone: around each
/// clip that `quick` gives, on each side as long as the key frames lie apart at most and a clip of
/// `segmentation` needs, inside `range`. In order; what overlaps or all but meets is one.
QVector<TimeRange> rangesToRefine(const Measurement& quick, const SegmentationOptions& segmentation,
                                  const TimeRange& range);

/// Seconds between two pictures of a measurement, the most that there are.
double largestGap(const Measurement& measurement);
