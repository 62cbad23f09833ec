#include "scanner.h"

#include "clipexport.h"
#include "clipreport.h"
#include "interrupt.h"
#include "progressline.h"
#include "snapshotfolder.h"
#include "tracefile.h"

#include <QDir>
#include <QFileInfo>
#include <QVector>

#include <cstdio>

namespace {

/// Everything that one call writes to.
struct Outputs {
    ClipReport& report;
    ProgressLine& progress;
    SnapshotFolder& snapshots;
    TraceFile& trace;
};

void complain(Outputs& outputs, const QString& subject, const QString& reason) {
    outputs.progress.clear();
    const QString text = QStringLiteral("kestrova-scan: %1: %2\n").arg(subject, reason);
    std::fputs(QFile::encodeName(text).constData(), stderr);
}

bool prepareFolder(const QString& path) {
    return QDir().mkpath(path) && QFileInfo(path).isWritable();
}

/// Follows the detection of one recording and reports it.
class RecordingScan : public DetectionClient {
public:
    RecordingScan(const QString& video, const ScanOptions& options, Outputs& outputs);

    /// True if the recording was read to its end and everything found was written.
    bool run();

    bool isCancelled() override { return isInterrupted(); }
    void opened(bool isIntraCodec, double) override { exporter.setIntraCodec(isIntraCodec); }
    void frameProcessed(const FrameReport& frame) override;
    void positionChanged(qint64 bytePosition) override;
    void endReached() override {}
    void clipFound(const DetectedClip& clip) override;

private:
    QString writeSnapshot(const DetectedClip& clip);
    void summarise() const;

    const ScanOptions& options;
    Outputs& outputs;
    ClipExport exporter;
    VideoLine line;
    QString snapshotName;
    qint64 fileSize;
    bool isWritten = true;
};

RecordingScan::RecordingScan(const QString& video, const ScanOptions& options, Outputs& outputs)
    : options(options)
    , outputs(outputs)
    , exporter(video, options.exporting)
    , fileSize(QFileInfo(video).size()) {
    line.video = video;
    if (!options.snapshotDirectory.isEmpty())
        snapshotName = outputs.snapshots.takeName(video);
}

bool RecordingScan::run() {
    outputs.progress.start();
    QVector<float> motionValues;
    QVector<double> frameTimes;
    Detection detection(options.detection, *this, motionValues, frameTimes);
    // An absolute path is a file to the media libraries, whatever colons its name has.
    line.outcome = detection.run(QFileInfo(line.video).absoluteFilePath());
    outputs.progress.clear();
    if (!detection.errorText().isEmpty())
        complain(outputs, line.video, detection.errorText());
    outputs.report.endVideo(line);
    const bool isRead = line.outcome == DetectionOutcome::Finished;
    if (isRead && !options.quiet)
        summarise();
    return isRead && isWritten;
}

void RecordingScan::frameProcessed(const FrameReport& frame) {
    line.frames = frame.number + 1;
    line.seconds = frame.time;
    outputs.trace.add(frame);
}

void RecordingScan::positionChanged(qint64 bytePosition) {
    const bool isKnown = bytePosition >= 0 && fileSize > 0;
    const double share = isKnown ? double(bytePosition) / double(fileSize) : -1.0;
    outputs.progress.show({line.video, share, line.clips, line.seconds});
}

void RecordingScan::clipFound(const DetectedClip& clip) {
    ++line.clips;
    ClipLine clipLine;
    clipLine.video = line.video;
    clipLine.clip = clip;
    if (!snapshotName.isEmpty())
        clipLine.snapshotFile = writeSnapshot(clip);
    const QString failure = exporter.run(clipLine);
    if (!failure.isEmpty()) {
        isWritten = false;
        complain(outputs, clipLine.exportFile, failure);
    }
    outputs.progress.clear();
    outputs.report.addClip(clipLine);
}

/// The path of the picture written, empty if there is none.
QString RecordingScan::writeSnapshot(const DetectedClip& clip) {
    QString path = outputs.snapshots.pathOf(snapshotName, clip.index);
    if (clip.snapshot.save(path, "PNG"))
        return path;
    isWritten = false;
    complain(outputs, path, QStringLiteral("cannot write the picture"));
    return {};
}

void RecordingScan::summarise() const {
    const QString text = QStringLiteral("%1: clips: %2, length: %3\n")
                             .arg(line.video)
                             .arg(line.clips)
                             .arg(clockText(line.seconds));
    std::fputs(QFile::encodeName(text).constData(), stderr);
}

} // namespace

ExitStatus scan(const ScanOptions& options, QIODevice& output) {
    const auto report =
        makeClipReport(options.format, !options.exporting.directory.isEmpty(), output);
    ProgressLine progress(!options.quiet);
    SnapshotFolder snapshots(options.snapshotDirectory);
    TraceFile trace;
    Outputs outputs{*report, progress, snapshots, trace};

    if (!options.snapshotDirectory.isEmpty() && !snapshots.prepare()) {
        complain(outputs, options.snapshotDirectory,
                 QStringLiteral("cannot write into this folder"));
        return UsageError;
    }
    if (!options.exporting.directory.isEmpty() && !prepareFolder(options.exporting.directory)) {
        complain(outputs, options.exporting.directory,
                 QStringLiteral("cannot write into this folder"));
        return UsageError;
    }
    if (!options.traceFile.isEmpty() && !trace.open(options.traceFile)) {
        complain(outputs, options.traceFile, trace.errorText());
        return UsageError;
    }
    report->begin();
    ExitStatus status = AllRead;
    for (const QString& video : options.videos) {
        if (!RecordingScan(video, options, outputs).run())
            status = SomeFailed;
        if (isInterrupted())
            break;
    }
    if (!trace.close()) {
        complain(outputs, options.traceFile, trace.errorText());
        status = SomeFailed;
    }
    return isInterrupted() ? Interrupted : status;
}
