// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "detection.h"

#include "decision.h"
#include "framesnapshot.h"
#include "likelysnapshots.h"
#include "missingpicture.h"
#include "picturesource.h"
#include "videodecoder.h"

#include <QFile>

#include <cmath>
#include <memory>
#include <utility>

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

MeasuringEnd withoutTimes() {
    return {DetectionOutcome::NoUsableTimes, QStringLiteral("no usable times"), true};
}

} // namespace

Detection::Detection(const DetectionOptions& options, DetectionProgress& progress,
                     DetectionFindings* findings)
    : options(options)
    , progress(progress)
    , findings(findings) {}

MeasuringEnd Detection::run(const QString& fileName) {
    return endOfRun([&] {
        path = QFile::encodeName(fileName);
        return runFile();
    });
}

MeasuringEnd Detection::runFile() {
    VideoDecoder decoder(options.threads);
    decoder.setKeyframesOnly(options.isKeyframesOnly);
    if (mayBeCut())
        decoder.setChunks(comparisonFor(options.measure), keeperMaker());
    decoder.setInterrupt([this] { return progress.isCancelled(); });
    if (decoder.open(path.constData()))
        return runOpen(decoder);
    if (progress.isCancelled()) // which cuts an open short
        return {DetectionOutcome::Cancelled};
    return {DetectionOutcome::CannotOpen, decoder.errorText(), decoder.isFileToBlame()};
}

/// Into chunks, that are decoded side by side.
bool Detection::mayBeCut() const {
    const bool isWhole = options.range.from <= 0.0 && std::isinf(options.range.to);
    return options.threads != 1 && !options.isKeyframesOnly && isWhole;
}

/// Makes small pictures on the threads that decode them, if anybody wants to see some.
PictureKeeperMaker Detection::keeperMaker() const {
    if (!findings || !options.areSnapshotsWanted)
        return {};
    const float threshold = options.segmentation.motionThreshold;
    const int skip = options.measure.skip;
    return [threshold, skip] { return std::make_unique<LikelySnapshots>(threshold, skip); };
}

MeasuringEnd Detection::runOpen(VideoDecoder& decoder) {
    const auto end = runOpened(decoder, skipAhead(decoder));
    if (end)
        return *end;
    decoder.open(path.constData());
    return *runOpened(decoder, std::nullopt);
}

std::optional<MeasuringEnd> Detection::runSkipped(VideoDecoder& decoder,
                                                  const RecordingOrigin& origin) {
    return endOfRun([&] { return runOpened(decoder, origin); });
}

/// Goes to the range without decoding what lies before it. Answers the picture that all are counted
/// from then; nothing where the file is to be read from its start.
std::optional<RecordingOrigin> Detection::skipAhead(VideoDecoder& decoder) {
    const bool isSlow = options.range.from > 0.0 && !options.isKeyframesOnly;
    if (!isSlow || options.times.frameRate > 0.0 || !decoder.canReadAgain())
        return std::nullopt;
    const Frame first = decoder.next();
    const bool isTimed = first.isThere() && !first.isTimeMissing;
    if (isTimed && decoder.open(path.constData()) &&
        decoder.skipTo(first.time + options.range.from))
        return RecordingOrigin{first.time, first.packet};
    decoder.open(path.constData());
    return std::nullopt;
}

/// Nothing, before anybody is told anything, if the file must be read from its start after all.
std::optional<MeasuringEnd> Detection::runOpened(VideoDecoder& decoder,
                                                 std::optional<RecordingOrigin> origin) {
    measured.stream = decoder.facts();
    PictureSource source(decoder, options.threads != 1, options.times);
    RangedPictures pictures(source, options.range, origin);
    PicturePair first{pictures.next(), {}};
    begin(first, pictures);
    if (first.previous.isThere())
        first.current = pictures.next();
    const bool hasBegun = first.current.isThere();
    if (origin && (pictures.hasMismatch() || !hasBegun) && !progress.isCancelled())
        return std::nullopt;
    if (!hasBegun)
        return failToBegin(source, first.previous.isThere());
    measured.hasPictures = true;
    measured.stream.isRegionEmpty = selectsNothing(options.measure.region, first.current);
    const MeasuringEnd end = measureAndDecide(std::move(first), pictures);
    if (end.outcome != DetectionOutcome::Finished)
        return end;
    if (source.isStandingStill())
        return withoutTimes();
    findDamage(decoder);
    return end;
}

/// Or measures alone, where nobody wants to know what is found.
MeasuringEnd Detection::measureAndDecide(PicturePair first, RangedPictures& pictures) {
    const MotionMeasure measurer(options.measure);
    if (!findings)
        return measure(std::move(first), pictures, measurer, progress, sinkOf(measured.series));
    Decision decision(options.segmentation, measured, handleOf(first.previous), *findings);
    const auto decide = [&](MotionScore motion, const Frame& picture) {
        decision.add(motion, picture.time, handleOf(picture));
    };
    const MeasuringEnd end = measure(std::move(first), pictures, measurer, progress, decide);
    decision.finish();
    measured.series = decision.series();
    return end;
}

ClipPicturePointer Detection::handleOf(const Frame& picture) {
    if (!options.areSnapshotsWanted)
        return noPicture();
    if (picture.chunk)
        return chunkSnapshots.handleOf(picture);
    return std::make_shared<FrameSnapshot>(picture.picture);
}

void Detection::begin(const PicturePair& first, const RangedPictures& pictures) {
    if (!first.previous.isThere())
        return;
    measured.stream.frameRate = pictures.source().frameRate();
    measured.stream.origin = pictures.originTime();
    measured.firstNumber = pictures.number();
    measured.firstTime = first.previous.time;
}

MeasuringEnd Detection::failToBegin(const PictureSource& source, bool hasPicture) {
    if (progress.isCancelled()) // which cuts a read short
        return {DetectionOutcome::Cancelled};
    if (source.isFirstUseless())
        return withoutTimes();
    const QString& failure = source.end().error;
    if (!failure.isEmpty())
        return {DetectionOutcome::TooFewPictures, failure};
    QString error = QStringLiteral("no picture could be decoded");
    if (options.range.from > 0.0 || std::isfinite(options.range.to))
        error = QStringLiteral("fewer than two pictures lie in the range");
    else if (hasPicture)
        error = QStringLiteral("only one picture could be decoded");
    return {DetectionOutcome::TooFewPictures, error, true};
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
