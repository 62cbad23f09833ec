// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partdetection.h"

#include "partreading.h"
#include "picturesource.h"
#include "videodecoder.h"

#include <QFile>

#include <algorithm>
#include <utility>

PartDetection::PartDetection(const DetectionOptions& options, RecordingPart part,
                             DetectionProgress& progress)
    : options(options)
    , part(part)
    , progress(progress) {}

MeasuringEnd PartDetection::run(const QString& fileName) {
    return endOfRun([&] { return runFile(fileName); });
}

MeasuringEnd PartDetection::runFile(const QString& fileName) {
    path = QFile::encodeName(fileName);
    VideoDecoder decoder(options.threads);
    decoder.setInterrupt([this] { return progress.isCancelled(); });
    // Where it cannot be opened, the other road tells why.
    if (!decoder.open(path.constData()))
        return measureWhole(fileName);
    measured.stream = decoder.facts();
    const bool isCut = goToPart(decoder);
    if (progress.isCancelled())
        return {DetectionOutcome::Cancelled};
    if (isCut)
        return measureCut(decoder);
    const QString error =
        decoder.errorText().isEmpty() ? decoder.readEnd().error : decoder.errorText();
    decoder.close();
    if (!error.isEmpty())
        return {DetectionOutcome::ReadFailed, error};
    return measureUncut(fileName);
}

MeasuringEnd PartDetection::measureWhole(const QString& fileName) {
    DetectionOptions whole = options;
    whole.range = TimeRange();
    Detection detection(whole, progress);
    const MeasuringEnd end = detection.run(fileName);
    measured = detection.measurement();
    return end;
}

MeasuringEnd PartDetection::measureUncut(const QString& fileName) {
    partFacts.kind = part.index == 1 ? PartFacts::Kind::Whole : PartFacts::Kind::Empty;
    return part.index == 1 ? measureWhole(fileName) : MeasuringEnd();
}

/// Whether it can be cut goes by what lies at its beginning, so that all parts agree on it.
bool PartDetection::goToPart(VideoDecoder& decoder) {
    if (options.times.frameRate > 0.0 || !decoder.canReadAgain())
        return false;
    const Frame first = decoder.next();
    if (!first.isThere() || first.isTimeMissing)
        return false;
    measured.stream.origin = first.time;
    return decoder.open(path.constData()) && decoder.beginPart(part, first.packet);
}

MeasuringEnd PartDetection::measureCut(VideoDecoder& decoder) {
    const PartReading& reading = *decoder.part();
    partFacts.delay = reading.delay();
    const bool isEmpty = reading.begin() == reading.end();
    if (isEmpty) {
        takeFacts(reading, true);
        return {};
    }
    MeasuringEnd end;
    const qint64 errorsBefore = decoder.libavErrors();
    bool hasOwnTimes = true;
    {
        PictureSource pictures(decoder, options.threads != 1, options.times);
        end = measurePictures(pictures, std::max<qint64>(reading.begin() - 1, 0));
        hasOwnTimes = !pictures.isFirstUseless() && pictures.frameRate() == 0.0;
    }
    // Decoders conceal damage and depend on older pictures then, often without a mark on theirs.
    const bool isSound = decoder.libavErrors() == errorsBefore;
    takeFacts(reading, isSound && hasOwnTimes && reading.isRegular() && isWhole(decoder));
    return end;
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
MeasuringEnd PartDetection::measurePictures(PictureSource& source, qint64 firstNumber) {
    RangedPictures pictures(source, TimeRange(), std::nullopt);
    PicturePair first{pictures.next(), {}};
    Frame& begin = first.previous;
    const qint64 firstPacket = firstNumber + partFacts.delay;
    while (begin.isThere() && begin.packet < firstPacket && !progress.isCancelled())
        begin = pictures.next();
    if (begin.isThere()) {
        measured.hasPictures = true;
        measured.firstNumber = firstNumber;
        measured.firstTime = begin.time;
        measured.stream.isRegionEmpty = selectsNothing(options.measure.region, begin);
        first.current = pictures.next();
    }
    return measure(std::move(first), pictures, MotionMeasure(options.measure, firstNumber),
                   progress, sinkOf(measured.series));
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
