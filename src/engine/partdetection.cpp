// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partdetection.h"

#include "partcells.h"
#include "partreading.h"

#include <QFile>

#include <algorithm>
#include <utility>

PartDetection::PartDetection(const DetectionOptions& options, RecordingPart part,
                             DetectionProgress& progress)
    : options(options)
    , part(part)
    , progress(progress) {}

MeasuringEnd PartDetection::run(const QString& fileName) {
    MeasuringEnd end = endOfRun([&] { return runFile(fileName); });
    if (end.outcome == DetectionOutcome::OutOfMemory)
        measured.maps = CellMaps(); // some may be missing
    return end;
}

MeasuringEnd PartDetection::run(FrameStream& frames) {
    MeasuringEnd end = endOfRun([&] { return measureOpen(frames); });
    if (end.outcome == DetectionOutcome::OutOfMemory)
        measured.maps = CellMaps();
    return end;
}

MeasuringEnd PartDetection::runFile(const QString& fileName) {
    FramePlan plan;
    plan.times = options.times;
    plan.part = part;
    plan.lead = lead(options);
    plan.threads = options.threads;
    std::optional<FrameStream> frames(std::in_place, QFile::encodeName(fileName), plan,
                                      [this] { return progress.isCancelled(); });
    if (progress.isCancelled())
        return {DetectionOutcome::Cancelled};
    if (!frames->isOpen())
        return {DetectionOutcome::CannotOpen, frames->errorText(), frames->isFileToBlame()};
    if (frames->part())
        return measureOpen(*frames);
    measured.stream = frames->facts();
    measured.stream.origin = frames->origin();
    const QString error = frames->end().error;
    frames.reset();
    if (!error.isEmpty())
        return {DetectionOutcome::ReadFailed, error};
    return measureUncut(fileName);
}

MeasuringEnd PartDetection::measureWhole(const QString& fileName) {
    DetectionOptions whole = options;
    whole.range = TimeRange();
    Detection detection(whole, progress);
    MeasuringEnd end = detection.run(fileName);
    measured = detection.measurement();
    return end;
}

MeasuringEnd PartDetection::measureUncut(const QString& fileName) {
    partFacts.kind = part.index == 1 ? PartFacts::Kind::Whole : PartFacts::Kind::Empty;
    return part.index == 1 ? measureWhole(fileName) : MeasuringEnd();
}

MeasuringEnd PartDetection::measureOpen(FrameStream& frames) {
    measured.stream = frames.facts();
    measured.stream.origin = frames.origin();
    return measureCut(frames);
}

MeasuringEnd PartDetection::measureCut(FrameStream& frames) {
    const PartReading& reading = *frames.part();
    partFacts.delay = reading.delay();
    const bool isEmpty = reading.begin() == reading.end();
    if (isEmpty) {
        takeFacts(reading, true);
        return {};
    }
    const qint64 errorsBefore = frames.libavErrors();
    PartCells cells(options.measure.skip, reading.delay(), reading.firstSure());
    MeasuringEnd end = measureFrames(frames, std::max<qint64>(reading.begin() - 1, 0), cells);
    // Another thread may still be reading.
    if (end.outcome == DetectionOutcome::Cancelled)
        return end;
    const bool hasOwnTimes = !frames.isFirstUseless() && frames.forcedFrameRate() == 0.0;
    // Decoders conceal damage and depend on older pictures then, often without a mark on theirs.
    const bool isSound = frames.libavErrors() == errorsBefore;
    takeFacts(reading, isSound && hasOwnTimes && reading.isRegular() && isWhole(frames) &&
                           !frames.isOtherwise() && (!options.areMapsKept || areMapsSure(cells)));
    return end;
}

/// So early a begin that the last picture before the part and the first of it, of those that are
/// looked at, have the maps of one pass.
PartLead PartDetection::lead(const DetectionOptions& options) {
    return options.areMapsKept ? PartLead{cellHistory, 2 * (options.measure.skip + 1)} : PartLead();
}

bool PartDetection::areMapsSure(const PartCells& cells) const {
    const QVector<double>& times = measured.series.times;
    const bool isHeld = skippedFrom(measured.firstNumber + 1, options.measure.skip) > 0;
    return times.isEmpty() || (isHeld ? cells.isLastSure() : cells.isSureAt(times.first()));
}

/// What is missing of a recording is told by who measures all of it.
bool PartDetection::isWhole(const FrameStream& frames) const {
    ReadingSigns signs = frames.readingSigns();
    if (!frames.part()->isToTheEnd())
        signs.promised = 0.0;
    return !damageOf({measured.stream.origin, measured.firstTime}, measured.series, signs)
                .isThere();
}

/// `firstNumber`: of the frame to begin with.
MeasuringEnd PartDetection::measureFrames(FrameStream& frames, qint64 firstNumber,
                                          PartCells& cells) {
    FramePair first{frames.next(), {}};
    Frame& begin = first.previous;
    const qint64 firstPacket = firstNumber + partFacts.delay;
    const auto leadUp = [&] {
        if (options.areMapsKept && begin.isThere())
            cells.add(begin);
    };
    for (; begin.isThere() && begin.packet < firstPacket && !progress.isCancelled();
         begin = frames.next())
        leadUp();
    leadUp();
    if (begin.isThere()) {
        measured.hasPictures = true;
        measured.firstNumber = firstNumber;
        measured.firstTime = begin.time;
        measured.stream.isRegionEmpty = selectsNothing(options.measure.region, begin);
        first.current = frames.next();
    }
    return measure(std::move(first), frames,
                   {MotionMeasure(options.measure, firstNumber), cells.take()}, progress,
                   sinkOf(measured));
}

void PartDetection::takeFacts(const PartReading& reading, bool isRegular) {
    partFacts.begin = reading.begin();
    partFacts.end = reading.end();
    partFacts.isRegular = isRegular;
    const qint64 own = measured.series.scores.size();
    if (reading.begin() > 0)
        partFacts.held = int(std::min(skippedFrom(reading.begin(), options.measure.skip), own));
}
