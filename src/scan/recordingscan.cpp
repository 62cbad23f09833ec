// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingscan.h"

#include "cellsmeasurement.h"
#include "clocktext.h"
#include "keptdetection.h"
#include "keyframegap.h"
#include "measuresettings.h"
#include "missingpicture.h"
#include "otherfindings.h"
#include "picturefinder.h"
#include "quicklook.h"
#include "rangesearch.h"
#include "recordingplaces.h"
#include "refinement.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double closeKeyFrames = 2.0; ///< seconds: a visit shows in some of them

} // namespace

RecordingScan::RecordingScan(Recording& recording, const ScanOptions& options, ScanOutputs& outputs,
                             MeasuredAhead known)
    : recording(recording)
    , options(options)
    , outputs(outputs)
    , ahead(std::move(known))
    , wasAhead(ahead.isThere())
    , progress(recording, outputs)
    , output(recording, options, outputs)
    , segmentation(options.detection.segmentation) {}

ExitStatus RecordingScan::run() {
    return finish(endOfRun([this] { return search(); }));
}

ExitStatus RecordingScan::finish(const MeasuringEnd& end) {
    output.finish(end, damage);
    const bool isRead = end.outcome == DetectionOutcome::Finished;
    const bool isPartly = output.isPartly();
    if (!isWritten || !output.areClipsWritten() || (!isRead && !isPartly && !end.isLasting))
        return SomeFailed;
    return isRead || isPartly ? AllDone : SomeUnreadable;
}

void RecordingScan::measureAlone() {
    complainOfRefusal();
    const ValuesStore::Found found = outputs.values.find(recording);
    watch(found);
    if (!outputs.values.keepJoined(found))
        isWritten = false;
    ended = {DetectionOutcome::CannotOpen};
    if (found.values) {
        takeKept(*found.values);
    } else if (!found.isRefused) {
        areKeyFramesMeasured = options.detection.isKeyframesOnly;
        ended = measureAll();
    }
    output.setQuick(areKeyFramesMeasured);
}

ClipPicturePointer RecordingScan::pictureOf(int index) {
    if (!areSnapshotsWanted())
        return noPicture();
    return std::make_shared<LatePicture>(pictureFinder(), index);
}

ExitStatus RecordingScan::conclude() {
    MeasuringEnd end = ended;
    if (isSearched)
        judgeChange(end);
    return finish(end);
}

MeasuringEnd RecordingScan::search() {
    complainOfRefusal();
    const ValuesStore::Found found = find();
    watch(found);
    MeasuringEnd end{DetectionOutcome::CannotOpen};
    if (!keepJoined(found))
        isWritten = false;
    if (found.values)
        end = decideOnKept(*found.values);
    else if (ahead.isPartly)
        end = decidePartly();
    else if (!found.isRefused)
        end = isMeasuredFirst() ? measureFirst() : measure();
    if (isSearched)
        judgeChange(end);
    output.endClips();
    lookAtOtherOptions(found, end);
    showPlaces(found);
    tellPartly(end);
    return end;
}

ValuesStore::Found RecordingScan::find() {
    if (ahead.isPartly)
        return {};
    if (!ahead.whole)
        return outputs.values.find(recording);
    isSearched = true;
    return *std::exchange(ahead.whole, std::nullopt);
}

/// What was measured in this call is kept only if it is of the recording as it is.
bool RecordingScan::keepJoined(const ValuesStore::Found& found) {
    if (isSearched && !isUnchanged())
        return true;
    const bool isKept = outputs.values.keepJoined(found);
    if (isKept && isSearched && !options.valuesDirectory.isEmpty())
        outputs.values.removeParts(recording, ahead.parts);
    return isKept;
}

/// Where the budget was spent before all of it was looked at.
void RecordingScan::tellPartly(const MeasuringEnd& end) {
    const bool isCut = end.outcome == DetectionOutcome::Cancelled;
    const bool isInParts = ahead.isPartly || outputs.budget.isSpent();
    if (!isCut || !isInParts)
        return;
    double share = ahead.share;
    if (!ahead.isPartly && ahead.seconds > 0.0)
        share = std::min(output.seconds() / ahead.seconds, 1.0);
    output.setLooked(share, ahead.seconds, !isEnding());
}

/// On each row of parts as if it was all there is.
MeasuringEnd RecordingScan::decidePartly() {
    isSearched = !ahead.runs.isEmpty();
    isWritten = isWritten && ahead.isKept;
    measuredAs = options.detection;
    if (options.detection.cells.isRestlessIgnored) // of which the whole alone tells
        return {DetectionOutcome::Cancelled};
    for (const Measurement& run : ahead.runs) {
        finder.reset(); // it is of the one before
        measurement = run;
        output.leaveOut(run.firstTime - run.stream.origin);
        decide({DetectionOutcome::Cancelled}, false);
    }
    return {DetectionOutcome::Cancelled};
}

void RecordingScan::complainOfRefusal() {
    const QString refusal = outputs.format.refusal(recording);
    if (refusal.isEmpty())
        return;
    isWritten = false;
    outputs.messages.complain(recording.video, refusal);
}

void RecordingScan::watch(const ValuesStore::Found& found) {
    using Measured = WatchedRecording::Measured;
    if (found.values && !isSearched)
        recording.watched.emplace(found.values->recording, Measured::Before);
    else if (recording.stamp)
        recording.watched.emplace(*recording.stamp, Measured::Now);
    if (found.values)
        showFile(found.values->recording);
    else if (recording.stamp)
        showFile(*recording.stamp);
}

/// In the report, by whose marks it is found again.
void RecordingScan::showFile(const RecordingStamp& stamp) {
    if (!recording.reported)
        return;
    recording.reported->bytes = stamp.bytes;
    recording.reported->modified = stamp.modified / 1000000;
}

bool RecordingScan::isUnchanged() {
    return !recording.watched || recording.watched->state() == WatchedRecording::State::Same;
}

/// What was found in a recording that is another one now is nobody's. One that a camera still
/// writes to was searched as far as it went.
void RecordingScan::judgeChange(MeasuringEnd& end) {
    if (isUnchanged() || end.outcome == DetectionOutcome::Cancelled)
        return;
    end.isLasting = false;
    const WatchedRecording::State state = recording.watched->state();
    if (state == WatchedRecording::State::Grown) {
        isWritten = false;
        outputs.messages.complain(recording.video,
                                  QStringLiteral("it grew while it was searched; what came behind "
                                                 "%1 is left out")
                                      .arg(preciseClockText(output.seconds())));
        return;
    }
    end.outcome = DetectionOutcome::ReadFailed;
    end.error = state == WatchedRecording::State::Gone
                    ? QStringLiteral("it was removed while it was searched")
                    : QStringLiteral("it was changed while it was searched");
}

/// Decides while the recording is decoded.
MeasuringEnd RecordingScan::measure() {
    DetectionOptions wanted = options.detection;
    wanted.areSnapshotsWanted = areSnapshotsWanted();
    wanted.areMapsKept = wanted.areMapsKept || (recording.reported && areCellsAsked());
    Detection detection(wanted, progress, &output);
    output.setSpending(true);
    MeasuringEnd end = runAndKeep(detection);
    output.setSpending(false);
    output.endClips();
    if (recording.reported)
        enterPlaces(detection.measurement(), options.detection, *recording.reported);
    if (!output.isRemarkable())
        return end;
    measurement = detection.measurement();
    if (!options.detection.areMapsKept) // what is told of other options needs no report
        measurement.maps = CellMaps();
    return end;
}

/// What is said first depends on how far the key frames lie apart, and what is left out on the
/// whole recording. Which picture a piece of a clip shows is known when its others are decoded.
bool RecordingScan::isMeasuredFirst() const {
    const bool isRestlessIgnored = areCellsAsked() && options.detection.cells.isRestlessIgnored;
    const bool isCut = options.selection.longest && areSnapshotsWanted();
    return options.detection.isKeyframesOnly || isRestlessIgnored || isCut;
}

/// Decides when all is measured.
MeasuringEnd RecordingScan::measureFirst() {
    tellOfFarKeyFrames();
    output.setQuick(options.detection.isKeyframesOnly);
    progress.spend(ahead.seconds);
    const MeasuringEnd end = measureAll();
    return decide(end, options.detection.isKeyframesOnly);
}

MeasuringEnd RecordingScan::measureAll() {
    DetectionOptions wanted = options.detection;
    wanted.areMapsKept = wanted.areMapsKept || areCellsAsked();
    Detection detection(wanted, progress);
    progress.spend(ahead.seconds);
    MeasuringEnd end = runAndKeep(detection);
    measurement = detection.measurement();
    measuredAs = options.detection;
    return end;
}

MeasuringEnd RecordingScan::runAndKeep(Detection& detection) {
    isSearched = true;
    MeasuringEnd end = detection.run(recording.path);
    damage = detection.measurement().damage;
    if (isUnchanged() && !outputs.values.keep(recording, detection.measurement(), end))
        isWritten = false;
    return end;
}

MeasuringEnd RecordingScan::decideOnKept(const KeptValues& values) {
    takeKept(values);
    output.setQuick(areKeyFramesMeasured);
    return decide(ended, areKeyFramesMeasured);
}

void RecordingScan::takeKept(const KeptValues& values) {
    measurement = values.measurement;
    damage = measurement.damage;
    areKeyFramesMeasured = areOfKeyFrames(values.settings);
    // In this call: a mask is known, of which values keep a digest.
    measuredAs = isSearched ? options.detection : measuredWith(values.settings, options.detection);
    isMeanFitting = outputs.values.areOfThisCall(values);
    // No other failures are kept than those that last.
    const bool isFailure = values.outcome != DetectionOutcome::Finished;
    ended = {values.outcome, values.reason, isFailure};
}

/// Decides on what was measured, be it all of the recording or as far as that went, and answers how
/// the recording has ended.
MeasuringEnd RecordingScan::decide(const MeasuringEnd& measured, bool isQuick) {
    if (!measurement.hasPictures)
        return measured;
    if (areCellsAsked())
        takeValuesOfCells();
    if (isQuick) {
        segmentation.fewestCompared = fewestQuickComparisons;
        outputs.messages.warn(recording.video, quickNote(measurement, segmentation.minimum,
                                                         options.detection.detector));
    }
    MeasuringEnd end;
    if (isQuick && options.isRefined && !measured.isLasting)
        end = refine();
    else if (!decideOnAll())
        end.outcome = DetectionOutcome::Cancelled;
    return end.outcome == DetectionOutcome::Finished ? measured : end;
}

void RecordingScan::takeValuesOfCells() {
    const CellBits restless = restlessOf(measurement, options.detection);
    if (options.detection.cells.isRestlessIgnored)
        output.tellRestless(restless, measurement.stream.description.size);
    ofCells = cellsMeasurement(measurement, options.detection, restless);
}

/// False where the scan has ended before.
bool RecordingScan::decideOnAll() {
    const auto isCut = [this] { return isOver(); };
    const auto late = [this](int picture) { return pictureOf(picture); };
    if (!areSnapshotsWanted() || !options.selection.isThere())
        return decideAgain(decided(), segmentation, late, isCut, output);
    const auto none = [](int) { return noPicture(); };
    output.setPictures([&](double seconds) { return late(pictureAt(seconds)); });
    const bool isWhole = decideAgain(decided(), segmentation, none, isCut, output);
    output.endClips();
    output.setPictures({});
    return isWhole;
}

/// The picture of the measurement that was shown then, in seconds from the first one.
int RecordingScan::pictureAt(double seconds) const {
    const QVector<double>& times = measurement.series.times;
    const double origin = measurement.stream.origin;
    const auto isEarlier = [origin](double time, double other) { return time - origin < other; };
    auto found = std::lower_bound(times.begin(), times.end(), seconds, isEarlier);
    const auto isThen = [&](double time) { return time - origin == seconds; };
    if (found == times.end() || !isThen(*found)) // the first one, or times ran backwards
        found = std::find_if(times.begin(), times.end(), isThen);
    return found == times.end() ? 0 : int(found - times.begin()) + 1;
}

PictureFinder& RecordingScan::pictureFinder() {
    if (finder)
        return *finder;
    finder = std::make_unique<PictureFinder>(recording.path, measuredAs.value_or(options.detection),
                                             measurement, [this] { return isOver(); });
    if (recording.watched)
        finder->setRefusal([this] { return recording.watched->flaw(); });
    else if (options.continuing ||
             options.selection.isThere()) // one would wait for somebody who writes it once more
        finder->setRefusal([] { return QStringLiteral("a pipe cannot be read again"); });
    if (!measuredAs)
        finder->readFromStart();
    return *finder;
}

/// Around what key frames show and, where these lie so far apart that they show little, what the
/// packets say is likely.
QVector<TimeRange> RecordingScan::rangesToSearch() const {
    const TimeRange& range = options.detection.range;
    QVector<TimeRange> shown = rangesToRefine(decided(), segmentation, range);
    if (largestGap(decided()) <= closeKeyFrames)
        return shown;
    const ScoutedRecording scouted = scout(recording.path, PartWish(), isEnding);
    return joinedRanges(shown, likeliestRanges(scouted), shortestBetween(decided()), range);
}

/// Before it begins, how little a quick look sees.
void RecordingScan::tellOfFarKeyFrames() const {
    const bool isQuick = options.detection.isKeyframesOnly && recording.stamp;
    const double gap = isQuick ? keyFrameGap(recording.path, isEnding) : 0.0;
    if (gap > closeKeyFrames)
        outputs.messages.note(
            QStringLiteral("%1: its key frames lie %2 s apart, between which a quick look sees "
                           "nothing; --promising-first with --budget finds more")
                .arg(recording.video, QString::number(gap, 'f', 1)));
}

/// Searches exactly around what key frames show.
MeasuringEnd RecordingScan::refine() {
    const QVector<TimeRange> ranges = rangesToSearch();
    const bool isRead = recording.watched && !ranges.isEmpty();
    const QString flaw = isRead ? recording.watched->flaw() : QString();
    if (!flaw.isEmpty())
        return {DetectionOutcome::ReadFailed, flaw};
    for (const TimeRange& searched : ranges)
        outputs.messages.note(
            QStringLiteral("%1: searched exactly from %2 to %3 s")
                .arg(recording.video, plainSeconds(searched.from), plainSeconds(searched.to)));
    DetectionOptions exact = options.detection;
    exact.isKeyframesOnly = false;
    exact.areMapsKept = false;
    RangeSearch search(exact, progress, output);
    output.beginRanges(decided());
    isSearched = isSearched || !ranges.isEmpty();
    MeasuringEnd end = search.run(recording.path, ranges);
    if (end.outcome == DetectionOutcome::Finished)
        output.endRanges();
    return end;
}

/// For a recording in which nothing was found, or nothing but motion.
void RecordingScan::lookAtOtherOptions(const ValuesStore::Found& found, const MeasuringEnd& end) {
    if (end.outcome != DetectionOutcome::Finished || !output.isRemarkable())
        return;
    if (found.values && measurement.maps.count() == 0)
        measurement.maps = ValuesStore::mapsOf(found).value_or(CellMaps());
    const OtherFindings others(measurement, isMeanFitting, decided(), options, segmentation);
    output.setOtherwise(output.isNothingFound() ? others.more() : others.less());
}

/// In the report, where maps were measured or kept.
void RecordingScan::showPlaces(const ValuesStore::Found& found) {
    if (!recording.reported)
        return;
    if (ahead.isPartly) {
        for (const Measurement& run : ahead.runs)
            addPlaces(run, options.detection, *recording.reported);
        return;
    }
    if (found.values && measurement.maps.count() == 0)
        measurement.maps = ValuesStore::mapsOf(found).value_or(CellMaps());
    enterPlaces(measurement, options.detection, *recording.reported);
}

bool RecordingScan::areSnapshotsWanted() const {
    return !options.snapshotDirectory.isEmpty() || recording.reported;
}
