// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingscan.h"

#include "cellsmeasurement.h"
#include "clocktext.h"
#include "interrupt.h"
#include "keptdetection.h"
#include "measuresettings.h"
#include "missingpicture.h"
#include "otherfindings.h"
#include "picturefinder.h"
#include "quicklook.h"
#include "rangesearch.h"
#include "refinement.h"

RecordingScan::RecordingScan(Recording& recording, const ScanOptions& options, ScanOutputs& outputs)
    : recording(recording)
    , options(options)
    , outputs(outputs)
    , progress(recording, outputs)
    , output(recording, options, outputs)
    , segmentation(options.detection.segmentation) {}

ExitStatus RecordingScan::run() {
    const MeasuringEnd end = endOfRun([this] { return search(); });
    output.finish(end, damage);
    const bool isRead = end.outcome == DetectionOutcome::Finished;
    if (!isWritten || !output.areClipsWritten() || (!isRead && !end.isLasting))
        return SomeFailed;
    return isRead ? AllDone : SomeUnreadable;
}

MeasuringEnd RecordingScan::search() {
    complainOfRefusal();
    const ValuesStore::Found found = outputs.values.find(recording);
    watch(found);
    MeasuringEnd end{DetectionOutcome::CannotOpen};
    if (!outputs.values.keepJoined(found))
        isWritten = false;
    if (found.values)
        end = decideOnKept(*found.values);
    else if (!found.isRefused)
        end = isMeasuredFirst() ? measureFirst() : measure();
    if (isSearched)
        judgeChange(end);
    output.endClips();
    lookAtOtherOptions(found, end);
    return end;
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
    if (found.values)
        recording.watched.emplace(found.values->recording, Measured::Before);
    else if (recording.stamp)
        recording.watched.emplace(*recording.stamp, Measured::Now);
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
    Detection detection(wanted, progress, &output);
    MeasuringEnd end = runAndKeep(detection);
    output.endClips();
    if (output.isRemarkable())
        measurement = detection.measurement();
    return end;
}

/// What is said first depends on how far the key frames lie apart, and what is left out on the
/// whole recording.
bool RecordingScan::isMeasuredFirst() const {
    const bool isRestlessIgnored = areCellsAsked() && options.detection.cells.isRestlessIgnored;
    return options.detection.isKeyframesOnly || isRestlessIgnored;
}

/// Decides when all is measured.
MeasuringEnd RecordingScan::measureFirst() {
    output.setQuick(options.detection.isKeyframesOnly);
    DetectionOptions wanted = options.detection;
    wanted.areMapsKept = wanted.areMapsKept || areCellsAsked();
    Detection detection(wanted, progress);
    const MeasuringEnd end = runAndKeep(detection);
    measurement = detection.measurement();
    measuredAs = options.detection;
    return decide(end, options.detection.isKeyframesOnly);
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
    measurement = values.measurement;
    damage = measurement.damage;
    const bool isQuick = areOfKeyFrames(values.settings);
    output.setQuick(isQuick);
    const bool isFailure = values.outcome != DetectionOutcome::Finished;
    measuredAs = measuredWith(values.settings, options.detection);
    isMeanFitting = outputs.values.areOfThisCall(values);
    // No other failures are kept than those that last.
    return decide({values.outcome, values.reason, isFailure}, isQuick);
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
    PictureFinder finder(recording.path, measuredAs.value_or(options.detection), measurement,
                         isEnding);
    if (recording.watched)
        finder.setRefusal([this] { return recording.watched->flaw(); });
    if (!measuredAs)
        finder.readFromStart();
    const auto pictures = [&](int picture) -> ClipPicturePointer {
        if (!areSnapshotsWanted())
            return noPicture();
        return std::make_shared<LatePicture>(finder, picture);
    };
    return decideAgain(decided(), segmentation, pictures, isEnding, output);
}

/// Searches exactly around what key frames show.
MeasuringEnd RecordingScan::refine() {
    const QVector<TimeRange> ranges =
        rangesToRefine(decided(), segmentation, options.detection.range);
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

bool RecordingScan::areSnapshotsWanted() const {
    return !options.snapshotDirectory.isEmpty() || recording.reported;
}
