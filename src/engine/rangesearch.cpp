// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "rangesearch.h"

#include "videodecoder.h"

#include <QFile>

RangeSearch::RangeSearch(const DetectionOptions& options, DetectionProgress& progress,
                         DetectionFindings& findings)
    : options(options)
    , progress(progress)
    , findings(findings) {}

MeasuringEnd RangeSearch::run(const QString& name, const QVector<TimeRange>& ranges) {
    fileName = name;
    path = QFile::encodeName(fileName);
    VideoDecoder decoder(options.threads);
    decoder.setInterrupt([this] { return progress.isCancelled(); });
    const auto origin = begin(decoder);
    for (const TimeRange& range : ranges) {
        options.range = range;
        const MeasuringEnd end = search(decoder, origin);
        const bool isEmpty = end.outcome == DetectionOutcome::TooFewPictures && end.isLasting;
        if (!isEmpty && end.outcome != DetectionOutcome::Finished)
            return end;
    }
    return {};
}

/// The picture that all are counted from; nothing where each range is better read by itself.
std::optional<RecordingOrigin> RangeSearch::begin(VideoDecoder& decoder) {
    if (options.times.frameRate > 0.0 || !decoder.open(path.constData()) || !decoder.canReadAgain())
        return std::nullopt;
    const Frame first = decoder.next();
    if (!first.isThere() || first.isTimeMissing || !decoder.open(path.constData()))
        return std::nullopt;
    return RecordingOrigin{first.time, first.packet};
}

MeasuringEnd RangeSearch::search(VideoDecoder& decoder,
                                 const std::optional<RecordingOrigin>& origin) {
    Detection detection(options, progress, &findings);
    std::optional<MeasuringEnd> end;
    if (origin && decoder.skipTo(origin->time + options.range.from))
        end = detection.runSkipped(decoder, *origin);
    if (end)
        return *end;
    if (origin)
        decoder.open(path.constData());
    return detection.run(fileName);
}
