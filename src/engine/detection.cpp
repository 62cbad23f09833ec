// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "detection.h"

#include "decision.h"
#include "framepicture.h"
#include "likelysnapshots.h"
#include "missingpicture.h"
#include "picturesource.h"
#include "videodecoder.h"

#include <QFile>

#include <cmath>
#include <memory>
#include <new>

bool selectsNothing(const RegionOfInterest& region, int width, int height) {
    return width > 0 && height > 0 && prepareRegion(region, width, height).isEmpty();
}

StreamFacts streamFacts(const VideoDecoder& decoder) {
    StreamFacts facts;
    facts.codecName = decoder.codecName();
    facts.isIntraOnly = decoder.isIntraOnly();
    facts.duration = decoder.duration();
    facts.description = decoder.description();
    return facts;
}

namespace {

/// Compares pictures on the threads that decode them.
PictureComparisonMaker comparisonFor(const MeasureOptions& options) {
    return [options]() -> PictureComparison {
        const auto pictures = std::make_shared<PictureDifference>(options);
        return [pictures](const DecodedFrame& previous, const DecodedFrame& current) {
            return pictures->compare(previous, current);
        };
    };
}

/// Where chunks end, the last picture of them is decoded again to compare the next one with.
MotionScore motionOf(MotionMeasure& measure, const TimedPicture& previous,
                     const TimedPicture& current) {
    if (current.chunked)
        return measure.take(current.chunked->motion, current.width(), current.height());
    if (previous.frame)
        return measure.measure(*previous.frame, *current.frame);
    const FramePointer again = decodeAgain(*previous.chunked);
    if (!again)
        throw std::bad_alloc();
    return measure.measure(*again, *current.frame);
}

} // namespace

Detection::Detection(const DetectionOptions& options, DetectionClient& client)
    : options(options)
    , client(client) {}

DetectionOutcome Detection::run(const QString& fileName) {
    try {
        path = QFile::encodeName(fileName);
        return runFile();
    } catch (const std::bad_alloc&) {
        return failWithoutMemory();
    }
}

DetectionOutcome Detection::runFile() {
    VideoDecoder decoder(options.threads);
    decoder.setKeyframesOnly(options.isKeyframesOnly);
    if (mayBeCut())
        decoder.setChunks(comparisonFor(options.measure), keeperMaker());
    decoder.setInterrupt([this] { return client.isCancelled(); });
    DetectionOutcome outcome = DetectionOutcome::CannotOpen;
    if (decoder.open(path.constData()))
        outcome = runOpen(decoder);
    else if (client.isCancelled()) // which cuts an open short
        outcome = DetectionOutcome::Cancelled;
    else
        failToOpen(decoder);
    decoder.close();
    return outcome;
}

/// Into chunks, that are decoded side by side.
bool Detection::mayBeCut() const {
    const bool isWhole = options.range.from <= 0.0 && std::isinf(options.range.to);
    return options.threads != 1 && !options.isKeyframesOnly && isWhole;
}

/// Makes small pictures on the threads that decode them, if anybody wants to see some.
PictureKeeperMaker Detection::keeperMaker() const {
    if (!options.areSnapshotsWanted)
        return {};
    const float threshold = options.segmentation.motionThreshold;
    const int skip = options.measure.skip;
    return [threshold, skip] { return std::make_unique<LikelySnapshots>(threshold, skip); };
}

DetectionOutcome Detection::runOpen(VideoDecoder& decoder) {
    const auto outcome = runOpened(decoder, skipAhead(decoder));
    if (outcome)
        return *outcome;
    decoder.open(path.constData());
    return runOpened(decoder, std::nullopt).value_or(DetectionOutcome::CannotOpen);
}

std::optional<DetectionOutcome> Detection::runSkipped(VideoDecoder& decoder,
                                                      const RecordingOrigin& origin) {
    try {
        return runOpened(decoder, origin);
    } catch (const std::bad_alloc&) {
        return failWithoutMemory();
    }
}

/// Goes to the range without decoding what lies before it. Answers the picture that all are counted
/// from then; nothing where the file is to be read from its start.
std::optional<RecordingOrigin> Detection::skipAhead(VideoDecoder& decoder) {
    const bool isSlow = options.range.from > 0.0 && !options.isKeyframesOnly;
    if (!isSlow || options.times.frameRate > 0.0 || !decoder.canReadAgain())
        return std::nullopt;
    const FramePointer first(decoder.readFrame(true));
    const bool isTimed = first && !first->isTimeMissing;
    if (isTimed && decoder.open(path.constData()) &&
        decoder.skipTo(first->time + options.range.from))
        return RecordingOrigin{first->time, first->packet};
    decoder.open(path.constData());
    return std::nullopt;
}

/// Nothing, before the client is told anything, if the file must be read from its start after all.
std::optional<DetectionOutcome> Detection::runOpened(VideoDecoder& decoder,
                                                     std::optional<RecordingOrigin> origin) {
    measured.stream = streamFacts(decoder);
    PictureSource source(decoder, options.threads != 1, options.times);
    RangedPictures pictures(source, options.range, origin);
    TimedPicture previous = pictures.next();
    begin(previous, pictures, source.frameRate());
    TimedPicture current = previous.isThere() ? pictures.next() : TimedPicture();
    if (origin && (pictures.isInDoubt() || !current.isThere()) && !client.isCancelled())
        return std::nullopt;
    if (!current.isThere())
        return failToBegin(source, previous.isThere());
    measured.hasPictures = true;
    measured.stream.isRegionEmpty =
        selectsNothing(options.measure.region, current.width(), current.height());

    MotionMeasure measure(options.measure);
    Decision decision(options.segmentation, measured, handleOf(previous), client);
    DetectionOutcome outcome = DetectionOutcome::Cancelled;
    while (current.isThere() && !client.isCancelled()) {
        const MotionScore motion = motionOf(measure, previous, current);
        decision.add(motion, current.time, handleOf(current));
        previous = std::move(current);
        current = pictures.next();
        if (!current.isThere() && !client.isCancelled())
            outcome = outcomeOf(source);
        client.positionChanged(source.bytePosition());
    }
    decision.finish();
    measured.series = decision.series();
    if (outcome == DetectionOutcome::Finished)
        findDamage(decoder);
    return outcome;
}

ClipPicturePointer Detection::handleOf(const TimedPicture& picture) {
    if (!options.areSnapshotsWanted)
        return noPicture();
    if (picture.chunked)
        return chunkSnapshots.handleOf(*picture.chunked);
    return std::make_shared<FramePicture>(picture.frame);
}

void Detection::begin(const TimedPicture& first, const RangedPictures& range, double frameRate) {
    if (!first.isThere())
        return;
    measured.stream.frameRate = frameRate;
    measured.stream.origin = range.originTime();
    measured.firstNumber = range.number();
    measured.firstTime = first.time;
}

void Detection::failToOpen(const VideoDecoder& decoder) {
    error = decoder.errorText();
    isLastingFailure = decoder.isFileToBlame();
}

DetectionOutcome Detection::failToBegin(const PictureSource& pictures, bool hasPicture) {
    if (client.isCancelled()) // which cuts a read short
        return DetectionOutcome::Cancelled;
    if (pictures.isFirstUseless())
        return failWithoutTimes();
    isLastingFailure = pictures.end().error.isEmpty();
    if (!isLastingFailure)
        error = pictures.end().error;
    else if (options.range.from > 0.0 || std::isfinite(options.range.to))
        error = QStringLiteral("fewer than two pictures lie in the range");
    else if (hasPicture)
        error = QStringLiteral("only one picture could be decoded");
    else
        error = QStringLiteral("no picture could be decoded");
    return DetectionOutcome::TooFewPictures;
}

/// How a run has ended that nobody cancelled; tells the client.
DetectionOutcome Detection::outcomeOf(const PictureSource& pictures) {
    const ReadEnd& end = pictures.end();
    if (end.cause == ReadEnd::Cause::OutOfMemory) {
        error = end.error;
        return DetectionOutcome::OutOfMemory;
    }
    client.endReached();
    if (end.cause == ReadEnd::Cause::ReadError) {
        error = QStringLiteral("cannot be read to its end: %1").arg(end.error);
        return DetectionOutcome::ReadFailed;
    }
    return pictures.isStandingStill() ? failWithoutTimes() : DetectionOutcome::Finished;
}

/// Of what was read to its end. Key frames alone tell nothing of the others and of the length, and
/// how far one reads beyond a range depends on the threads.
void Detection::findDamage(const VideoDecoder& decoder) {
    if (options.isKeyframesOnly || std::isfinite(options.range.to))
        return;
    ReadingSigns signs = decoder.readingSigns();
    if (measured.stream.frameRate > 0.0) // the times are not those of the headers
        signs.promised = 0.0;
    measured.damage =
        damageOf({measured.stream.origin, measured.firstTime}, measured.series, signs);
}

DetectionOutcome Detection::failWithoutMemory() {
    error = QStringLiteral("out of memory");
    return DetectionOutcome::OutOfMemory;
}

DetectionOutcome Detection::failWithoutTimes() {
    error = QStringLiteral("no usable times");
    isLastingFailure = true;
    return DetectionOutcome::NoUsableTimes;
}

QString Detection::errorText() const {
    return error;
}
