// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "detection.h"

#include "cellscores.h"
#include "decision.h"
#include "framesnapshot.h"
#include "likelybycells.h"
#include "missingpicture.h"

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

/// Reduces pictures to cells there.
PictureReductionMaker reductionMaker() {
    return []() -> PictureReduction {
        const auto pictures = std::make_shared<PictureCells>();
        return [pictures](const DecodedFrame& picture) { return pictures->reduce(picture); };
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
        FrameStream frames(QFile::encodeName(fileName), plan(),
                           [this] { return progress.isCancelled(); });
        return run(frames);
    });
}

MeasuringEnd Detection::run(FrameStream& frames) {
    MeasuringEnd end = endOfRun([&] { return runOn(frames); });
    if (end.outcome == DetectionOutcome::OutOfMemory)
        measured.maps = CellMaps(); // some may be missing
    return end;
}

FramePlan Detection::plan() const {
    FramePlan plan;
    plan.times = options.times;
    plan.range = options.range;
    plan.isKeyframesOnly = options.isKeyframesOnly;
    plan.threads = options.threads;
    plan.work.comparison = comparisonFor(options.measure);
    if (areMapsWanted())
        plan.work.reduction = reductionMaker();
    plan.work.keeper = keeperMaker();
    return plan;
}

bool Detection::areMapsWanted() const {
    return options.areMapsKept || (findings && options.detector == Detector::Cells);
}

/// Makes small pictures on the threads that decode them, if anybody wants to see some.
PictureKeeperMaker Detection::keeperMaker() const {
    if (!findings || !options.areSnapshotsWanted)
        return {};
    const MotionThreshold threshold = options.segmentation.motionThreshold;
    const int skip = options.measure.skip;
    if (options.detector == Detector::Mean)
        return [threshold, skip] { return std::make_unique<LikelySnapshots>(threshold, skip); };
    return [threshold, skip, region = options.measure.region, cells = options.cells] {
        return std::make_unique<LikelyByCells>(threshold, skip, region, cells);
    };
}

MeasuringEnd Detection::runOn(FrameStream& frames) {
    if (!frames.isOpen()) {
        if (progress.isCancelled()) // which cuts an open short
            return {DetectionOutcome::Cancelled};
        return {DetectionOutcome::CannotOpen, frames.errorText(), frames.isFileToBlame()};
    }
    measured.stream = frames.facts();
    FramePair first{frames.next(), {}};
    begin(first, frames);
    if (first.previous.isThere())
        first.current = frames.next();
    if (!first.current.isThere())
        return failToBegin(frames, first.previous.isThere());
    measured.hasPictures = true;
    measured.stream.isRegionEmpty = selectsNothing(options.measure.region, first.current);
    MeasuringEnd end = measureAndDecide(std::move(first), frames);
    if (end.outcome != DetectionOutcome::Finished)
        return end;
    if (frames.isStandingStill())
        return withoutTimes();
    findDamage(frames);
    return end;
}

/// Or measures alone, where nobody wants to know what is found.
MeasuringEnd Detection::measureAndDecide(FramePair first, FrameStream& frames) {
    Measures measures{MotionMeasure(options.measure), std::nullopt};
    if (areMapsWanted())
        measures.cells.emplace(options.measure.skip).add(first.previous);
    if (findings)
        return decide(std::move(first), frames, std::move(measures));
    return measure(std::move(first), frames, std::move(measures), progress, sinkOf(measured));
}

/// What is kept are the values of the mean, whatever one decides on.
MeasuringEnd Detection::decide(FramePair first, FrameStream& frames, Measures measures) {
    Decision decision(options.segmentation, measured, handleOf(first.previous), *findings);
    std::optional<CellScores> scores;
    if (options.detector == Detector::Cells)
        scores.emplace(options.measure.region, measured.stream.description.size, options.cells);
    QVector<MotionScore> means; // where cells decide
    const auto take = [&](const FrameMotion& motion, const Frame& frame) {
        if (options.areMapsKept)
            measured.maps.append(*motion.map);
        if (scores)
            means.append(motion.mean);
        const MotionScore score = scores ? scores->add(frame.time, *motion.map) : motion.mean;
        decision.add(score, frame.time, handleOf(frame));
    };
    MeasuringEnd end = measure(std::move(first), frames, std::move(measures), progress, take);
    decision.finish();
    measured.series = decision.series();
    if (scores)
        measured.series.scores = means;
    return end;
}

ClipPicturePointer Detection::handleOf(const Frame& frame) {
    if (!options.areSnapshotsWanted)
        return noPicture();
    if (frame.chunk)
        return chunkSnapshots.handleOf(frame);
    return std::make_shared<FrameSnapshot>(frame.picture);
}

void Detection::begin(const FramePair& first, const FrameStream& frames) {
    if (!first.previous.isThere())
        return;
    measured.stream.frameRate = frames.forcedFrameRate();
    measured.stream.origin = frames.origin();
    measured.firstNumber = frames.firstNumber();
    measured.firstTime = first.previous.time;
}

MeasuringEnd Detection::failToBegin(const FrameStream& frames, bool hasPicture) {
    if (progress.isCancelled()) // which cuts a read short
        return {DetectionOutcome::Cancelled};
    if (frames.isFirstUseless())
        return withoutTimes();
    const QString failure = frames.end().error;
    if (!failure.isEmpty())
        return {DetectionOutcome::TooFewPictures, failure};
    QString error = QStringLiteral("no picture could be decoded");
    if (options.range.from > 0.0 || std::isfinite(options.range.to))
        error = QStringLiteral("fewer than two pictures lie in the range");
    else if (hasPicture && options.isKeyframesOnly)
        error = QStringLiteral("a quick look compares key frames, and only one was found");
    else if (hasPicture)
        error = QStringLiteral("only one picture could be decoded");
    return {DetectionOutcome::TooFewPictures, error, true};
}

/// Of what was read to its end. Key frames alone tell nothing of the others and of the length, and
/// how far one reads beyond a range depends on the threads.
void Detection::findDamage(const FrameStream& frames) {
    if (options.isKeyframesOnly || std::isfinite(options.range.to))
        return;
    ReadingSigns signs = frames.readingSigns();
    if (measured.stream.frameRate > 0.0) // the times are not those of the headers
        signs.promised = 0.0;
    measured.damage =
        damageOf({measured.stream.origin, measured.firstTime}, measured.series, signs);
}
