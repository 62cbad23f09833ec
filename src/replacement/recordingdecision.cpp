// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingdecision.h"

#include "picturefinder.h"
#include "video.h"

#include <QCoreApplication>

namespace {

/// Of the measurement, 0 for its first one; -1 where there is none at that time. The same sum gave
/// the clip its time.
int pictureAt(double time, const Measurement& measured) {
    const double origin = measured.stream.origin;
    for (int i = 0; i < measured.series.times.size(); ++i) {
        if (measured.series.times[i] - origin == time)
            return i + 1;
    }
    return measured.firstTime - origin == time ? 0 : -1;
}

} // namespace

RecordingDecision::RecordingDecision(const Video& video, const DecidingOptions& options)
    : fileName(video.fileName)
    , check(video)
    , options(options)
    , motion(video) {}

RecordingDecision::~RecordingDecision() = default;

/// A recording that has grown still holds what was measured.
void RecordingDecision::decide() {
    file = check.presence();
    if (file == FilePresence::Same)
        found = motion.clips(options);
}

QImage RecordingDecision::picture(const DetectedClip& clip) {
    const Measurement* values = motion.valuesOf(options);
    const Measurement* means = motion.means();
    if (!values || !means)
        return {};
    const int index = pictureAt(clip.snapshotTime, *values);
    if (index < 0)
        return {};
    if (!finder)
        finder = std::make_unique<PictureFinder>(fileName, motion.measuredWith(), *means,
                                                 [this] { return isCancelled.load(); });
    return finder->snapshot(index);
}

QString RecordingDecision::flaw() const {
    switch (file) {
    case FilePresence::Gone:
        return QCoreApplication::translate("RecordingDecision", "it is gone");
    case FilePresence::Changed:
        return QCoreApplication::translate("RecordingDecision", "it has changed");
    default:
        return {};
    }
}
