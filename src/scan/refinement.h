// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "keptdetection.h"
#include "measurement.h"
#include "scouting.h"
#include "timerange.h"

#include <QVector>

/// Where a recording is to be searched exactly after a look at its key frames alone: around each
/// clip that `quick` gives, on each side as long as the key frames lie apart at most and a clip of
/// `segmentation` needs, inside `range`. In order; what overlaps or all but meets is one.
QVector<TimeRange> rangesToRefine(const Measurement& quick, const SegmentationOptions& segmentation,
                                  const TimeRange& range);

/// The likeliest parts of a recording that was scouted, a twentieth of its length and a part more
/// at the most, in order; none where its packets promise nothing.
QVector<TimeRange> likeliestRanges(const ScoutedRecording& scouted);

/// All that lie in `ranges` or `others`, inside `range`, in order. What overlaps, or has less than
/// `shortest` seconds between it, is one.
QVector<TimeRange> joinedRanges(const QVector<TimeRange>& ranges, const QVector<TimeRange>& others,
                                double shortest, const TimeRange& range);

/// What has to lie between two ranges for each to be searched by itself, in seconds.
double shortestBetween(const Measurement& quick);

/// Seconds between two pictures of a measurement, the most that there are.
double largestGap(const Measurement& measurement);
