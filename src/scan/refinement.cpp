// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "refinement.h"

#include <algorithm>

double largestGap(const Measurement& measurement) {
    double gap = 0.0;
    double before = measurement.firstTime;
    for (const double time : measurement.series.times) {
        gap = std::max(gap, time - before);
        before = time;
    }
    return gap;
}

QVector<TimeRange> rangesToRefine(const Measurement& quick, const SegmentationOptions& segmentation,
                                  const TimeRange& range) {
    const double gap = largestGap(quick);
    const double margin =
        gap + segmentation.prerecord + segmentation.postrecord + segmentation.minimum;
    // To go on behind so short a gap, its packets would have to be read twice.
    const double shortest = 2.0 * gap;
    QVector<TimeRange> ranges;
    for (const DetectedClip& clip : clipsOf(quick, segmentation)) {
        const TimeRange searched{std::max(clip.start - margin, range.from),
                                 std::min(clip.end + margin, range.to)};
        if (!ranges.isEmpty() && searched.from <= ranges.last().to + shortest)
            ranges.last().to = std::max(ranges.last().to, searched.to);
        else
            ranges.append(searched);
    }
    return ranges;
}
