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

/// To go on behind so short a gap, its packets would have to be read twice.
double shortestBetween(const Measurement& quick) {
    return 2.0 * largestGap(quick);
}

QVector<TimeRange> rangesToRefine(const Measurement& quick, const SegmentationOptions& segmentation,
                                  const TimeRange& range) {
    const double gap = largestGap(quick);
    const double margin =
        gap + segmentation.prerecord + segmentation.postrecord + segmentation.minimum;
    const double shortest = shortestBetween(quick);
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

QVector<TimeRange> likeliestRanges(const ScoutedRecording& scouted) {
    constexpr double mostOf = 0.05; // of its length
    QVector<double> begins;
    double end = 0.0;
    for (const double seconds : scouted.partSeconds) {
        begins.append(end);
        end += seconds;
    }
    QVector<TimeRange> ranges;
    double taken = 0.0;
    for (const int part : promisingOrder(scouted.promises)) {
        if (taken >= mostOf * end)
            break;
        taken += scouted.partSeconds[part];
        ranges.append({begins[part], begins[part] + scouted.partSeconds[part]});
    }
    return joinedRanges(ranges, {}, 0.0, TimeRange());
}

QVector<TimeRange> joinedRanges(const QVector<TimeRange>& ranges, const QVector<TimeRange>& others,
                                double shortest, const TimeRange& range) {
    QVector<TimeRange> all = ranges + others;
    std::sort(all.begin(), all.end(),
              [](const TimeRange& left, const TimeRange& right) { return left.from < right.from; });
    QVector<TimeRange> joined;
    for (const TimeRange& one : all) {
        const TimeRange inside{std::max(one.from, range.from), std::min(one.to, range.to)};
        if (inside.from >= inside.to)
            continue;
        if (!joined.isEmpty() && inside.from <= joined.last().to + shortest)
            joined.last().to = std::max(joined.last().to, inside.to);
        else
            joined.append(inside);
    }
    return joined;
}
