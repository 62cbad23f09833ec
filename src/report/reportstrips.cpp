// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reportstrips.h"

#include <algorithm>

namespace {

constexpr double least = 0.1; ///< of the top, so that noise does not fill a strip

} // namespace

ReportStrips::ReportStrips(const MotionReport& report)
    : greatest(stripTop(report)) {
    for (const ReportedRecording& recording : report.recordings) {
        for (const ReportedClip& clip : recording.clips)
            add(recording, clip, report);
    }
}

QVector<ClipStretch> ReportStrips::clipsIn(const ReportedRecording& recording) const {
    return clips.value(&recording);
}

void ReportStrips::add(const ReportedRecording& recording, const ReportedClip& clip,
                       const MotionReport& report) {
    if (clip.parts.isEmpty())
        clips[&recording].append({clip.start, clip.end});
    for (const ReportedPart& part : clip.parts)
        clips[&report.recordings[std::size_t(part.recording)]].append({part.start, part.end});
}

double stripTop(const MotionReport& report) {
    const double highest = thresholdSteps(report.detector).last();
    double strongest = std::max(least, 2.0 * report.threshold);
    for (const ReportedRecording& recording : report.recordings)
        strongest = std::max(strongest, double(recording.strip.greatest()));
    return std::min(strongest, highest);
}
