// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingscan.h"

#include "cutrange.h"
#include "interrupt.h"
#include "keptdetection.h"
#include "keptmeasurement.h"
#include "measuresettings.h"
#include "picturefile.h"
#include "quicklook.h"
#include "shortestdigits.h"

#include <QFileInfo>

#include <cmath>

namespace {

QByteArray traceLine(const FrameReport& frame) {
    return QByteArray::number(frame.number) + '\t' + shortestDigits(frame.time) + '\t' +
           shortestDigits(frame.motion) + '\n';
}

/// Where nobody wants to see the picture.
class MissingPicture : public ClipPicture {
public:
    QImage snapshot() override { return {}; }
    void shrink() override {}
};

QString noTimesHint(bool isQuick) {
    if (isQuick)
        return QStringLiteral(", without which there is no quick look");
    return QStringLiteral("; with --fps N its pictures are taken to be N per second");
}

const ClipPicturePointer noPicture = std::make_shared<MissingPicture>();

} // namespace

RecordingScan::RecordingScan(int index, const ScanOptions& options, ScanOutputs& outputs)
    : index(index)
    , options(options)
    , outputs(outputs)
    , exporter(outputs.exports[std::size_t(index)]) {
    line.video = options.videos[index];
    if (options.mergeGap)
        merger.emplace(*options.mergeGap);
}

bool RecordingScan::run() {
    complainOfRefusal();
    const ValuesStore::Found found = outputs.values.find(index);
    QString error;
    if (found.values)
        error = decide(*found.values);
    else if (found.isRefused)
        line.outcome = DetectionOutcome::CannotOpen;
    else if (options.detection.areKeysWanted)
        error = lookQuickly(found);
    else
        error = measure(found);
    if (merger)
        pass(merger->finish());
    outputs.totals.finish(index);
    if (outputs.report)
        outputs.report->finish(index, line.outcome, error);
    if (line.outcome == DetectionOutcome::NoUsableTimes)
        error += noTimesHint(line.isQuick);
    if (!error.isEmpty())
        outputs.messages.complain(line.video, error);
    report(outputs.format.videoEnd(line));
    const bool isRead = line.outcome == DetectionOutcome::Finished;
    if (isRead)
        outputs.messages.summarise(
            QStringLiteral("%1: clips: %2, length: %3")
                .arg(line.video, QString::number(line.clips), clockText(line.seconds)));
    return isRead && isWritten;
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
    Detection detection(options.detection, *this);
    // An absolute path is a file to the media libraries, whatever colons its name has.
    line.outcome = detection.run(QFileInfo(line.video).absoluteFilePath());
    if (!outputs.values.keep(found, detection, line.outcome))
        isWritten = false;
    return detection.errorText();
}

/// Decides when all is measured: what is said first depends on how far the key frames lie apart.
QString RecordingScan::lookQuickly(const ValuesStore::Found& found) {
    line.isQuick = true;
    QuickLook look(*this);
    Detection detection(options.detection, look);
    const DetectionOutcome outcome = detection.run(QFileInfo(line.video).absoluteFilePath());
    if (!outputs.values.keep(found, detection, outcome))
        isWritten = false;
    decide(keptValues(found.stamp.value_or(RecordingStamp()), outputs.values.measureSettings(),
                      detection, outcome));
    if (line.outcome != DetectionOutcome::Cancelled)
        line.outcome = outcome;
    return detection.errorText();
}

/// The same from what was measured before.
QString RecordingScan::decide(const KeptValues& values) {
    line.outcome = outcomeOf(values.end);
    measurement = measurementOf(values);
    line.isQuick = areOfKeyFrames(values.settings);
    const SegmentationOptions segmentation = segmentationOf(values);
    if (line.isQuick && values.hasPictures)
        outputs.messages.complain(line.video, quickNote(measurement, segmentation.minimum));
    makeFinder(values);
    const auto pictures = [this](int picture) { return clipPicture(picture); };
    const bool isWhole =
        !values.hasPictures || decideAgain(measurement, segmentation, pictures, *this);
    if (!isWhole)
        line.outcome = DetectionOutcome::Cancelled;
    return isWhole ? values.reason : QString();
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
    if (!outputs.values.areOfThisCall(values))
        finder->readFromStart();
}

ClipPicturePointer RecordingScan::clipPicture(int picture) {
    if (options.snapshotDirectory.isEmpty() && !outputs.report)
        return noPicture;
    return std::make_shared<LatePicture>(*finder, picture);
}

bool RecordingScan::isCancelled() {
    return isEnding();
}

void RecordingScan::opened(const QByteArray& codecName, double) {
    exporter.setCodec(codecName);
}

void RecordingScan::regionIsEmpty() {
    outputs.messages.complain(
        line.video,
        QStringLiteral(
            "warning: the region selects nothing of its pictures, so no motion is found"));
}

void RecordingScan::described(const StreamDescription& stream, double firstTime) {
    played = {stream, firstTime - stream.startTime};
}

void RecordingScan::numbered(double frameRate) {
    played.offset = 0.0;
    played.stream.frameRate = {int(std::lround(frameRate * 1000.0)), 1000};
    exporter.setFrameRate(frameRate);
    if (options.detection.times.frameRate == 0.0)
        outputs.messages.summarise(
            QStringLiteral("%1: no times; taken to be %2 pictures per second, as its headers say")
                .arg(line.video, shortestDigits(frameRate)));
}

void RecordingScan::frameProcessed(const FrameReport& frame) {
    outputs.totals.addSeconds(frame.time - line.seconds);
    line.frames += line.frames == 0 ? 2 : 1; // the first one is reported with the second
    line.seconds = frame.time;
    if (outputs.trace)
        outputs.trace->write(index, traceLine(frame));
    if (outputs.report)
        outputs.report->addValue(index, frame.time, frame.motion);
    if (merger)
        pass(merger->passBy(frame.earliestStart));
}

void RecordingScan::positionChanged(qint64 bytePosition) {
    outputs.totals.setPosition(index, bytePosition);
    outputs.messages.showProgress(outputs.totals.progress());
}

// For the window's job, whose state changes before its last clip; here the outcome says it all.
void RecordingScan::endReached() {}

void RecordingScan::clipFound(const DetectedClip& clip) {
    pass(merger ? merger->add(clip) : clip);
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
    found.isQuick = line.isQuick;
    if (!options.snapshotDirectory.isEmpty())
        found.snapshotFile = writeSnapshot(*clip);
    exportClip(found);
    if (outputs.report)
        showInReport(found);
    report(outputs.format.clip(found));
}

void RecordingScan::exportClip(ClipLine& found) {
    if (!canBeCut(found.clip.start, found.clip.end)) {
        isWritten = false;
        outputs.messages.complain(
            line.video, QStringLiteral("the times of clip #%1 make no sense, it cannot be cut out")
                            .arg(found.clip.index));
        return;
    }
    const QString failure = exporter.run(found);
    if (failure.isEmpty())
        return;
    isWritten = false;
    outputs.messages.complain(found.exportFile.isEmpty() ? line.video : found.exportFile, failure);
}

void RecordingScan::showInReport(const ClipLine& found) {
    const QString failure = outputs.report->addClip(found);
    if (failure.isEmpty())
        return;
    if (!found.clip.snapshot.isNull()) {
        isWritten = false;
        outputs.messages.complain(line.video, failure);
    } else if (options.snapshotDirectory.isEmpty()) { // else it has been said
        outputs.messages.complain(line.video, missingPicture());
    }
}

void RecordingScan::report(const QByteArray& lines) {
    outputs.messages.makeRoom();
    outputs.clips.write(index, lines);
}

/// Why a clip has no picture. One that cannot be scaled is the recording's own doing.
QString RecordingScan::missingPicture() {
    if (!finder || finder->errorText().isEmpty())
        return QStringLiteral("its pictures cannot be scaled");
    isWritten = false;
    return finder->errorText();
}

/// The path of the picture written, empty if there is none.
QString RecordingScan::writeSnapshot(const DetectedClip& clip) {
    QString path = outputs.snapshots.pathOf(index, clip.index);
    if (clip.snapshot.isNull()) {
        outputs.messages.complain(line.video, missingPicture());
        return {};
    }
    const QString failure = writePictureFile(clip.snapshot, path);
    if (failure.isEmpty())
        return path;
    isWritten = false;
    outputs.messages.complain(path, QStringLiteral("cannot write the picture: %1").arg(failure));
    return {};
}
