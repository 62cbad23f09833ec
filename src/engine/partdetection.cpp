// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partdetection.h"

#include "motionmeasure.h"
#include "partreading.h"
#include "picturesource.h"
#include "videodecoder.h"

#include <QFile>

#include <algorithm>
#include <new>

PartDetection::PartDetection(const DetectionOptions& options, RecordingPart part,
                             DetectionClient& client)
    : options(options)
    , part(part)
    , client(client) {}

DetectionOutcome PartDetection::run(const QString& fileName) {
    try {
        return runOrFail(fileName);
    } catch (const std::bad_alloc&) {
        error = QStringLiteral("out of memory");
        return DetectionOutcome::OutOfMemory;
    }
}

DetectionOutcome PartDetection::runOrFail(const QString& fileName) {
    path = QFile::encodeName(fileName);
    VideoDecoder decoder(options.threads);
    decoder.setInterrupt([this] { return client.isCancelled(); });
    // Where it cannot be opened, the other road tells why.
    if (!decoder.open(path.constData()))
        return measureWhole(fileName);
    measured.stream = streamFacts(decoder);
    const bool isCut = goToPart(decoder);
    if (client.isCancelled())
        return DetectionOutcome::Cancelled;
    if (isCut)
        return measureCut(decoder);
    error = decoder.errorText().isEmpty() ? decoder.readEnd().error : decoder.errorText();
    decoder.close();
    return error.isEmpty() ? measureUncut(fileName) : DetectionOutcome::ReadFailed;
}

DetectionOutcome PartDetection::measureWhole(const QString& fileName) {
    DetectionOptions whole = options;
    whole.range = TimeRange();
    Detection detection(whole, client);
    const DetectionOutcome outcome = detection.run(fileName);
    measured = detection.measurement();
    error = detection.errorText();
    isLastingFailure = detection.isLasting();
    return outcome;
}

DetectionOutcome PartDetection::measureUncut(const QString& fileName) {
    partFacts.kind = part.index == 1 ? PartFacts::Kind::Whole : PartFacts::Kind::Empty;
    return part.index == 1 ? measureWhole(fileName) : DetectionOutcome::Finished;
}

/// Whether it can be cut goes by what lies at its beginning, so that all parts agree on it.
bool PartDetection::goToPart(VideoDecoder& decoder) {
    if (options.times.frameRate > 0.0 || !decoder.canReadAgain())
        return false;
    const FramePointer first(decoder.readFrame(true));
    if (!first || first->isTimeMissing)
        return false;
    measured.stream.origin = first->time;
    return decoder.open(path.constData()) && decoder.beginPart(part, first->packet);
}

DetectionOutcome PartDetection::measureCut(VideoDecoder& decoder) {
    const PartReading& reading = *decoder.part();
    partFacts.delay = reading.delay();
    const bool isEmpty = reading.begin() == reading.end();
    if (isEmpty) {
        takeFacts(reading, true);
        return DetectionOutcome::Finished;
    }
    DetectionOutcome outcome = DetectionOutcome::Cancelled;
    const qint64 errorsBefore = decoder.libavErrors();
    bool hasOwnTimes = true;
    {
        PictureSource pictures(decoder, options.threads != 1, options.times);
        measurePictures(pictures, std::max<qint64>(reading.begin() - 1, 0));
        outcome = outcomeOf(pictures);
        hasOwnTimes = !pictures.isFirstUseless() && pictures.frameRate() == 0.0;
    }
    // Decoders conceal damage and depend on older pictures then, often without a mark on theirs.
    const bool isSound = decoder.libavErrors() == errorsBefore;
    takeFacts(reading, isSound && hasOwnTimes && reading.isRegular() && isWhole(decoder));
    return outcome;
}

/// What is missing of a recording is told by who measures all of it.
bool PartDetection::isWhole(const VideoDecoder& decoder) const {
    ReadingSigns signs = decoder.readingSigns();
    if (!decoder.part()->isToTheEnd())
        signs.promised = 0.0;
    return !damageOf({measured.stream.origin, measured.firstTime}, measured.series, signs)
                .isThere();
}

/// `firstNumber`: of the picture to begin with.
void PartDetection::measurePictures(PictureSource& pictures, qint64 firstNumber) {
    TimedPicture previous = pictures.next();
    const qint64 delay = partFacts.delay;
    while (previous.frame && previous.frame->packet - delay < firstNumber && !client.isCancelled())
        previous = pictures.next();
    if (!previous.frame)
        return;
    measured.hasPictures = true;
    measured.firstNumber = firstNumber;
    measured.firstTime = previous.time;
    measured.stream.isRegionEmpty =
        selectsNothing(options.measure.region, previous.width(), previous.height());
    MotionMeasure measure(options.measure, firstNumber);
    TimedPicture current = pictures.next();
    while (current.frame && !client.isCancelled()) {
        measured.series.scores.append(measure.measure(*previous.frame, *current.frame));
        measured.series.times.append(current.time);
        previous = std::move(current);
        current = pictures.next();
        client.positionChanged(pictures.bytePosition());
    }
}

DetectionOutcome PartDetection::outcomeOf(const PictureSource& pictures) {
    if (client.isCancelled())
        return DetectionOutcome::Cancelled;
    const ReadEnd& end = pictures.end();
    if (end.cause == ReadEnd::Cause::OutOfMemory) {
        error = end.error;
        return DetectionOutcome::OutOfMemory;
    }
    if (end.cause == ReadEnd::Cause::ReadError) {
        error = QStringLiteral("cannot be read to its end: %1").arg(end.error);
        return DetectionOutcome::ReadFailed;
    }
    return DetectionOutcome::Finished;
}

void PartDetection::takeFacts(const PartReading& reading, bool isRegular) {
    partFacts.begin = reading.begin();
    partFacts.end = reading.end();
    partFacts.isRegular = isRegular;
    const qint64 step = options.measure.skip + 1;
    const qint64 toNextMeasured = (step - reading.begin() % step) % step;
    const qint64 own = measured.series.scores.size();
    if (reading.begin() > 0)
        partFacts.held = int(std::min(toNextMeasured, own));
}
