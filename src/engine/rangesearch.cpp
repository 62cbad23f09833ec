// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "rangesearch.h"

#include "videodecoder.h"

#include <QFile>

RangeSearch::RangeSearch(const DetectionOptions& options, DetectionClient& client)
    : options(options)
    , client(client) {}

DetectionOutcome RangeSearch::run(const QString& name, const QVector<TimeRange>& ranges) {
    fileName = name;
    path = QFile::encodeName(fileName);
    VideoDecoder decoder(options.threads);
    decoder.setInterrupt([this] { return client.isCancelled(); });
    const auto origin = begin(decoder);
    DetectionOutcome outcome = DetectionOutcome::Finished;
    for (const TimeRange& range : ranges) {
        options.range = range;
        outcome = search(decoder, origin);
        const bool isEmpty = outcome == DetectionOutcome::TooFewPictures && isLastingFailure;
        if (!isEmpty && outcome != DetectionOutcome::Finished)
            return outcome;
    }
    error.clear();
    isLastingFailure = false;
    return DetectionOutcome::Finished;
}

/// The picture that all are counted from; nothing where each range is better read by itself.
std::optional<RecordingOrigin> RangeSearch::begin(VideoDecoder& decoder) {
    if (options.times.frameRate > 0.0 || !decoder.open(path.constData()) || !decoder.canReadAgain())
        return std::nullopt;
    const FramePointer first(decoder.readFrame(true));
    if (!first || first->isTimeMissing || !decoder.open(path.constData()))
        return std::nullopt;
    return RecordingOrigin{first->time, first->packet};
}

DetectionOutcome RangeSearch::search(VideoDecoder& decoder,
                                     const std::optional<RecordingOrigin>& origin) {
    Detection detection(options, client);
    std::optional<DetectionOutcome> outcome;
    if (origin && decoder.skipTo(origin->time + options.range.from))
        outcome = detection.runSkipped(decoder, *origin);
    if (!outcome) {
        if (origin)
            decoder.open(path.constData());
        outcome = detection.run(fileName);
    }
    error = detection.errorText();
    isLastingFailure = detection.isLasting();
    return *outcome;
}
