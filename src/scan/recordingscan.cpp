#include "recordingscan.h"

#include "cutrange.h"
#include "interrupt.h"
#include "picturefile.h"
#include "shortestdigits.h"

#include <QFileInfo>

#include <cmath>

namespace {

QByteArray traceLine(const FrameReport& frame) {
    return QByteArray::number(frame.number) + '\t' + shortestDigits(frame.time) + '\t' +
           shortestDigits(frame.motion) + '\n';
}

QString noTimesHint() {
    return QStringLiteral("; with --fps N its pictures are taken to be N per second");
}

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
    Detection detection(options.detection, *this);
    // An absolute path is a file to the media libraries, whatever colons its name has.
    line.outcome = detection.run(QFileInfo(line.video).absoluteFilePath());
    if (merger)
        pass(merger->finish());
    outputs.totals.finish(index);
    if (outputs.report)
        outputs.report->finish(index, line.outcome, detection.errorText());
    if (line.outcome == DetectionOutcome::NoUsableTimes)
        outputs.messages.complain(line.video, detection.errorText() + noTimesHint());
    else if (!detection.errorText().isEmpty())
        outputs.messages.complain(line.video, detection.errorText());
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
    line.frames = frame.number + 1;
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
    isWritten = isWritten && found.clip.snapshot.isNull();
    outputs.messages.complain(line.video, failure);
}

void RecordingScan::report(const QByteArray& lines) {
    outputs.messages.makeRoom();
    outputs.clips.write(index, lines);
}

/// The path of the picture written, empty if there is none.
QString RecordingScan::writeSnapshot(const DetectedClip& clip) {
    QString path = outputs.snapshots.pathOf(index, clip.index);
    if (clip.snapshot.isNull()) {
        outputs.messages.complain(line.video, QStringLiteral("its pictures cannot be scaled"));
        return {};
    }
    const QString failure = writePictureFile(clip.snapshot, path);
    if (failure.isEmpty())
        return path;
    isWritten = false;
    outputs.messages.complain(path, QStringLiteral("cannot write the picture: %1").arg(failure));
    return {};
}
