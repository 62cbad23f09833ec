// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "rangesearch.h"

#include <QFile>

RangeSearch::RangeSearch(const DetectionOptions& options, DetectionProgress& progress,
                         DetectionFindings& findings)
    : options(options)
    , progress(progress)
    , findings(findings) {}

MeasuringEnd RangeSearch::run(const QString& fileName, const QVector<TimeRange>& ranges) {
    std::optional<FrameStream> frames;
    for (const TimeRange& range : ranges) {
        options.range = range;
        Detection detection(options, progress, &findings);
        if (frames)
            frames->goOnTo(range);
        else
            frames.emplace(QFile::encodeName(fileName), detection.plan(),
                           [this] { return progress.isCancelled(); });
        MeasuringEnd end = detection.run(*frames);
        const bool isEmpty = end.outcome == DetectionOutcome::TooFewPictures && end.isLasting;
        if (!isEmpty && end.outcome != DetectionOutcome::Finished)
            return end;
    }
    return {};
}
