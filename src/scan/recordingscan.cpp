#include "recordingscan.h"

#include "interrupt.h"

#include <QFileInfo>
#include <QLocale>

namespace {

QByteArray exact(double value) {
    return QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
}

QByteArray traceLine(const FrameReport& frame) {
    return QByteArray::number(frame.number) + '\t' + exact(frame.time) + '\t' +
           exact(frame.motion) + '\n';
}

} // namespace

RecordingScan::RecordingScan(int index, const ScanOptions& options, ScanOutputs& outputs)
    : index(index)
    , options(options)
    , outputs(outputs)
    , format(clipFormat(options.format)) {
    line.video = options.videos[index];
}

bool RecordingScan::run() {
    QVector<float> motionValues;
    QVector<double> frameTimes;
    Detection detection(options.detection, *this, motionValues, frameTimes);
    // An absolute path is a file to the media libraries, whatever colons its name has.
    line.outcome = detection.run(QFileInfo(line.video).absoluteFilePath());
    if (!detection.errorText().isEmpty())
        outputs.messages.complain(line.video, detection.errorText());
    report(format.videoEnd(line));
    const bool isRead = line.outcome == DetectionOutcome::Finished;
    if (isRead)
        outputs.messages.summarise(QStringLiteral("%1: clips: %2, length: %3")
                                       .arg(line.video)
                                       .arg(line.clips)
                                       .arg(clockText(line.seconds)));
    return isRead && isWritten;
}

bool RecordingScan::isCancelled() {
    return isInterrupted();
}

void RecordingScan::opened(bool, double) {}

void RecordingScan::frameProcessed(const FrameReport& frame) {
    outputs.totals.addSeconds(frame.time - line.seconds);
    line.frames = frame.number + 1;
    line.seconds = frame.time;
    if (outputs.trace)
        outputs.trace->write(index, traceLine(frame));
}

void RecordingScan::positionChanged(qint64 bytePosition) {
    outputs.totals.setPosition(index, bytePosition);
    outputs.messages.showProgress(outputs.totals.progress());
}

void RecordingScan::endReached() {}

void RecordingScan::clipFound(const DetectedClip& clip) {
    ++line.clips;
    outputs.totals.addClip();
    const QString snapshot = options.snapshotDirectory.isEmpty() ? QString() : writeSnapshot(clip);
    report(format.clip({line.video, clip, snapshot}));
}

void RecordingScan::report(const QByteArray& lines) {
    outputs.messages.makeRoom();
    outputs.clips.write(index, lines);
}

/// The path of the picture written, empty if there is none.
QString RecordingScan::writeSnapshot(const DetectedClip& clip) {
    QString path = outputs.snapshots.pathOf(index, clip.index);
    if (clip.snapshot.save(path, "PNG"))
        return path;
    isWritten = false;
    outputs.messages.complain(path, QStringLiteral("cannot write the picture"));
    return {};
}
