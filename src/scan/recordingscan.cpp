// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingscan.h"

#include "clocktext.h"
#include "interrupt.h"
#include "keptdetection.h"
#include "measuresettings.h"
#include "missingpicture.h"
#include "quicklook.h"
#include "rangesearch.h"
#include "refinement.h"
#include "shortestdigits.h"

#include <QFileInfo>

#include <cmath>
#include <limits>
#include <new>

namespace {

QByteArray traceLine(const FrameReport& frame) {
    return QByteArray::number(frame.number) + '\t' + shortestDigits(frame.time) + '\t' +
           shortestDigits(frame.motion.value) + '\n';
}

QString noTimesHint(bool isQuick) {
    if (isQuick)
        return QStringLiteral(", without which there is no quick look");
    return QStringLiteral("; with --fps N its pictures are taken to be N per second");
}

} // namespace

RecordingScan::RecordingScan(int index, const ScanOptions& options, ScanOutputs& outputs)
    : index(index)
    , options(options)
    , outputs(outputs)
    , clips(index, options, outputs) {
    line.video = options.videos[index];
    if (options.mergeGap)
        merger.emplace(*options.mergeGap);
}

ExitStatus RecordingScan::run() {
    finish(searchOrFail());
    const bool isRead = line.outcome == DetectionOutcome::Finished;
    if (!isWritten || !clips.areWritten() || (!isRead && !isRecordingToBlame))
        return SomeFailed;
    return isRead ? AllDone : SomeUnreadable;
}

QString RecordingScan::searchOrFail() {
    try {
        return search();
    } catch (const std::bad_alloc&) {
        line.outcome = DetectionOutcome::OutOfMemory;
        isRecordingToBlame = false;
        return QStringLiteral("out of memory");
    }
}

/// Answers why the recording could not be read, empty if it could.
QString RecordingScan::search() {
    complainOfRefusal();
    const ValuesStore::Found found = outputs.values.find(index);
    watch(found);
    QString error;
    if (!outputs.values.keepJoined(found))
        isWritten = false;
    if (found.values)
        error = decide(*found.values);
    else if (found.isRefused)
        line.outcome = DetectionOutcome::CannotOpen;
    else if (options.detection.isKeyframesOnly)
        error = lookQuickly(found);
    else
        error = measure(found);
    if (isSearched)
        judgeChange(error);
    if (merger)
        pass(merger->finish());
    return error;
}

/// Says how it has ended; `error` as `search` answers it.
void RecordingScan::finish(const QString& error) {
    outputs.totals.finish(index);
    if (outputs.report && line.isQuick)
        outputs.report->markQuick(index);
    const bool isHinted = line.outcome == DetectionOutcome::NoUsableTimes;
    if (!error.isEmpty())
        outputs.messages.complain(line.video, isHinted ? error + noTimesHint(line.isQuick) : error);
    const bool isRead = line.outcome == DetectionOutcome::Finished;
    if (!isRead)
        line.damage = {};
    if (line.damage.isThere())
        outputs.messages.complain(line.video, damageText(line.damage));
    if (outputs.report)
        outputs.report->finish(index, line.outcome,
                               line.damage.isThere() ? damageText(line.damage) : error);
    clips.print(outputs.format.videoEnd(line));
    if (isRead)
        outputs.messages.summarise(
            QStringLiteral("%1: clips: %2, length: %3")
                .arg(line.video, QString::number(line.clips), preciseClockText(line.seconds)));
}

void RecordingScan::watch(const ValuesStore::Found& found) {
    using Measured = WatchedRecording::Measured;
    if (found.values)
        watched.emplace(found.values->recording, Measured::Before);
    else if (found.stamp)
        watched.emplace(*found.stamp, Measured::Now);
}

bool RecordingScan::isUnchanged() {
    return !watched || watched->state() == WatchedRecording::State::Same;
}

/// What was found in a recording that is another one now is nobody's. One that a camera still
/// writes to was searched as far as it went.
void RecordingScan::judgeChange(QString& error) {
    if (isUnchanged() || line.outcome == DetectionOutcome::Cancelled)
        return;
    isRecordingToBlame = false;
    const WatchedRecording::State state = watched->state();
    if (state == WatchedRecording::State::Grown) {
        isWritten = false;
        outputs.messages.complain(line.video,
                                  QStringLiteral("it grew while it was searched; what came behind "
                                                 "%1 is left out")
                                      .arg(preciseClockText(line.seconds)));
        return;
    }
    line.outcome = DetectionOutcome::ReadFailed;
    error = state == WatchedRecording::State::Gone
                ? QStringLiteral("it was removed while it was searched")
                : QStringLiteral("it was changed while it was searched");
}

void RecordingScan::complainOfRefusal() {
    const QString refusal = outputs.format.refusal(line.video);
    if (refusal.isEmpty())
        return;
    isWritten = false;
    outputs.messages.complain(line.video, refusal);
}

/// Decodes the recording; answers why it could not be read, empty if it could.
QString RecordingScan::measure(const ValuesStore::Found& found) {
    DetectionOptions wanted = options.detection;
    wanted.areSnapshotsWanted = areSnapshotsWanted();
    isSearched = true;
    Detection detection(wanted, *this, this);
    // An absolute path is a file to the media libraries, whatever colons its name has.
    const MeasuringEnd end = detection.run(QFileInfo(line.video).absoluteFilePath());
    line.outcome = end.outcome;
    isRecordingToBlame = end.isLasting;
    line.damage = detection.measurement().damage;
    if (isUnchanged() && !outputs.values.keep(found, detection.measurement(), end))
        isWritten = false;
    return end.error;
}

/// Decides when all is measured: what is said first depends on how far the key frames lie apart.
QString RecordingScan::lookQuickly(const ValuesStore::Found& found) {
    line.isQuick = true;
    isSearched = true;
    Detection detection(options.detection, *this);
    const MeasuringEnd end = detection.run(QFileInfo(line.video).absoluteFilePath());
    if (isUnchanged() && !outputs.values.keep(found, detection.measurement(), end))
        isWritten = false;
    const KeptValues looked = outputs.values.valuesOf(detection.measurement(), end);
    QString failure = decide(looked);
    if (line.outcome != looked.outcome)
        return failure;
    line.outcome = end.outcome;
    isRecordingToBlame = end.isLasting;
    return end.error;
}

/// The same from what was measured before.
QString RecordingScan::decide(const KeptValues& values) {
    line.outcome = values.outcome;
    isRecordingToBlame = true; // no other failure is kept
    measurement = values.measurement;
    line.damage = measurement.damage;
    line.isQuick = areOfKeyFrames(values.settings);
    const SegmentationOptions segmentation = segmentationOf(values);
    if (line.isQuick && measurement.hasPictures)
        outputs.messages.complain(line.video, quickNote(measurement, segmentation.minimum));
    if (options.isRefined && line.isQuick && values.outcome == DetectionOutcome::Finished)
        return refine(segmentation);
    makeFinder(values);
    const auto pictures = [this](int picture) { return clipPicture(picture); };
    const bool isWhole = !measurement.hasPictures ||
                         decideAgain(measurement, segmentation, pictures, isEnding, *this);
    if (!isWhole)
        line.outcome = DetectionOutcome::Cancelled;
    return isWhole ? values.reason : QString();
}

/// Searches exactly around what key frames show.
QString RecordingScan::refine(const SegmentationOptions& segmentation) {
    const QVector<TimeRange> stretches =
        rangesToRefine(measurement, segmentation, options.detection.range);
    QString flaw = watched && !stretches.isEmpty() ? watched->flaw() : QString();
    if (!flaw.isEmpty()) {
        line.outcome = DetectionOutcome::ReadFailed;
        isRecordingToBlame = false;
        return flaw;
    }
    for (const TimeRange& stretch : stretches)
        outputs.messages.summarise(
            QStringLiteral("%1: searched exactly from %2 to %3 s")
                .arg(line.video, plainSeconds(stretch.from), plainSeconds(stretch.to)));
    DetectionOptions exact = options.detection;
    exact.isKeyframesOnly = false;
    RangeSearch search(exact, *this, *this);
    nextLooked = 0;
    isSearched = isSearched || !stretches.isEmpty();
    const MeasuringEnd end = search.run(QFileInfo(line.video).absoluteFilePath(), stretches);
    line.outcome = end.outcome;
    isRecordingToBlame = end.isLasting;
    if (line.outcome == DetectionOutcome::Finished)
        passLooked(std::numeric_limits<double>::infinity());
    return end.error;
}

/// Between the stretches that are searched, the recording is as long and as lively as its key
/// frames say, up to before `time`.
void RecordingScan::passLooked(double time) {
    const QVector<double>& times = measurement.series.times;
    for (; nextLooked < times.size(); ++nextLooked) {
        const double looked = times[nextLooked] - measurement.stream.origin;
        if (looked >= time)
            return;
        if (looked <= line.seconds)
            continue;
        outputs.totals.addSeconds(looked - line.seconds);
        line.seconds = looked;
        if (outputs.report)
            outputs.report->addValue(index, looked, measurement.series.scores[nextLooked]);
    }
}

SegmentationOptions RecordingScan::segmentationOf(const KeptValues& values) const {
    SegmentationOptions segmentation = options.detection.segmentation;
    if (areOfKeyFrames(values.settings))
        segmentation.fewestCompared = fewestQuickComparisons;
    return segmentation;
}

void RecordingScan::makeFinder(const KeptValues& values) {
    const QString path = QFileInfo(line.video).absoluteFilePath();
    finder = std::make_unique<PictureFinder>(path, options.detection, measurement, isEnding);
    if (watched)
        finder->setRefusal([this] { return watched->flaw(); });
    if (!outputs.values.areOfThisCall(values))
        finder->readFromStart();
}

ClipPicturePointer RecordingScan::clipPicture(int picture) {
    if (!areSnapshotsWanted())
        return noPicture();
    return std::make_shared<LatePicture>(*finder, picture);
}

bool RecordingScan::areSnapshotsWanted() const {
    return !options.snapshotDirectory.isEmpty() || outputs.report;
}

bool RecordingScan::isCancelled() {
    return isEnding();
}

void RecordingScan::opened(const StreamFacts& stream) {
    played = {stream.description, stream.origin - stream.description.startTime};
    if (stream.frameRate > 0.0)
        numberPictures(stream.frameRate);
    outputs.exports[std::size_t(index)].setCodec(stream.codecName);
    hasBegunAgain = true;
    if (stream.isRegionEmpty)
        outputs.messages.complain(
            line.video,
            QStringLiteral(
                "warning: the region selects nothing of its pictures, so no motion is found"));
}

void RecordingScan::numberPictures(double frameRate) {
    played.offset = 0.0;
    played.stream.frameRate = {int(std::lround(frameRate * 1000.0)), 1000};
    outputs.exports[std::size_t(index)].setFrameRate(frameRate);
    if (options.detection.times.frameRate == 0.0)
        outputs.messages.summarise(
            QStringLiteral("%1: no times; taken to be %2 pictures per second, as its headers say")
                .arg(line.video, shortestDigits(frameRate)));
}

void RecordingScan::frameProcessed(const FrameReport& frame) {
    if (hasBegunAgain && nextLooked >= 0)
        passLooked(frame.time);
    outputs.totals.addSeconds(frame.time - line.seconds);
    line.frames += hasBegunAgain ? 2 : 1; // the first one is reported with the second
    hasBegunAgain = false;
    line.seconds = frame.time;
    if (outputs.trace)
        outputs.trace->write(index, traceLine(frame));
    if (outputs.report)
        outputs.report->addValue(index, frame.time, frame.motion);
    if (merger)
        pass(merger->passBy(frame.earliestStart));
}

void RecordingScan::positionChanged(qint64 bytePosition, bool) {
    outputs.totals.setPosition(index, bytePosition);
    outputs.messages.showProgress(outputs.totals.progress());
}

void RecordingScan::clipFound(const DetectedClip& clip) {
    DetectedClip numbered = clip;
    numbered.index = foundClips++;
    pass(merger ? merger->add(numbered) : numbered);
}

/// Does with a clip, if there is one, whatever is asked for.
void RecordingScan::pass(const std::optional<DetectedClip>& clip) {
    if (!clip)
        return;
    ++line.clips;
    outputs.totals.addClip();
    ClipLine found;
    found.video = line.video;
    found.recording = index;
    found.played = played;
    found.clip = *clip;
    found.isQuick = line.isQuick && !options.isRefined;
    clips.write(found, watched ? &*watched : nullptr);
}
