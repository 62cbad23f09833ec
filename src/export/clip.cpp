// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clip.h"

#include "clocktext.h"
#include "encoderprocess.h"
#include "encodertimes.h"
#include "encodingsettings.h"
#include "exportnotices.h"
#include "filenames.h"
#include "recordingcheck.h"
#include "video.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QPixmap>
#include <QSet>
#include <QTextDocument>

#include <algorithm>
#include <utility>

QList<Clip*> Clip::exportQueue;
bool Clip::exportRunning = false;
bool Clip::isStarting = false;
bool Clip::isNextDue = false;

namespace {

/// Empty if the encoder, which says that it has succeeded, has written something.
QString emptyFileReason(const QString& path) {
    const QFileInfo file(path);
    if (!file.exists())
        return Clip::tr("the encoder wrote no file");
    return file.size() > 0 ? QString() : Clip::tr("the encoder wrote an empty file");
}

} // namespace

Clip::Clip(Video* video, int index, const QImage& snapshot, double start, double end,
           double snapshotTime)
    : Clip(video, index, snapshot, start, end, snapshotTime, {}) {
    if (video->autoExport)
        exportClip(false);
}

Clip::Clip(Video* video, int index, const QImage& snapshot, double start, double end,
           double snapshotTime, const ExportState& state)
    : status(state.status)
    , video(video)
    , index(index)
    , start(start)
    , end(end)
    , snapshotTime(snapshotTime)
    , snapshot(snapshot)
    , outputPath(state.outputPath) {
    setData(Qt::DecorationRole, QIcon(QPixmap::fromImage(snapshot)));
    setToolTip(state.note);
    updateText();
}

Clip::~Clip() {
    exportQueue.removeAll(this);
    const auto reads = [](int wanted) {
        return [wanted](const Clip* clip) { return clip->status == wanted; };
    };
    exportRunning = std::any_of(exportQueue.cbegin(), exportQueue.cend(), reads(Exporting));
    if (exportRunning)
        return;
    const auto next = std::find_if(exportQueue.cbegin(), exportQueue.cend(), reads(Queued));
    if (next != exportQueue.cend())
        (*next)->exportClip(false);
}

void Clip::leaveQueue(const QList<Clip*>& clips) {
    const QSet<Clip*> leaving(clips.cbegin(), clips.cend());
    const auto leaves = [&leaving](Clip* clip) { return leaving.contains(clip); };
    exportQueue.erase(std::remove_if(exportQueue.begin(), exportQueue.end(), leaves),
                      exportQueue.end());
}

const char* Clip::statusText(int status) {
    switch (status) {
    case NotExported:
        return QT_TR_NOOP("not exported");
    case Exporting:
        return QT_TR_NOOP("exporting...");
    case Queued:
        return QT_TR_NOOP("queued...");
    case Canceled:
        return QT_TR_NOOP("canceled");
    case ExportFailed:
        return QT_TR_NOOP("export failed!");
    case Exported:
        return QT_TR_NOOP("exported");
    default:
        return QT_TR_NOOP("unknown status");
    }
}

void Clip::updateText() {
    // All at once: a file name may hold a "%1" of its own.
    const QString text =
        tr("%1\n#%2 %3 (%4 sec) (%5)")
            .arg(video ? video->shortFileName() : QString(), QString::number(index),
                 clockText(timeOfDay()), QString::number(truncatedToInt(end - start)),
                 tr(statusText(status)));
    setData(Qt::DisplayRole, text);
}

int Clip::timeOfDay() const {
    const bool isKnown = video && video->exportTimestamps;
    return secondOfDay(start, isKnown ? &video->startDateTime : nullptr);
}

void Clip::exportClip(bool first) {
    if (!video)
        return;
    if (!canBeCut(start, end)) {
        status = ExportFailed;
        explain(tr("a clip with these times cannot be cut out"));
        updateText();
        return;
    }
    if (exportRunning) {
        exportQueue.insert(first ? 0 : exportQueue.size(), this);
        status = Queued;
        updateText();
        return;
    }
    const bool isOutermost = !std::exchange(isStarting, true);
    status = Exporting;
    exportRunning = true;
    startEncoder();
    updateText();
    if (!isOutermost)
        return;
    // Where no process can be made, start after start ends on the spot; they must not nest.
    while (std::exchange(isNextDue, false) && !exportQueue.isEmpty())
        exportQueue.first()->exportClip(false);
    isStarting = false;
}

bool Clip::isBeingExported() const {
    return EncoderProcess::isRunningFor(this);
}

bool Clip::isExportedOrWill() const {
    return status == Exporting || status == Queued || status == Exported;
}

void Clip::openClip() {
    switch (status) {
    case Exported:
        openWhenDone = false;
        QDesktopServices::openUrl(fileUrl(outputPath));
        break;
    case ExportFailed:
        break;
    default:
        openWhenDone = true;
        exportClip(true);
    }
}

int Clip::exportQueueLength() {
    return exportQueue.size();
}

void Clip::startEncoder() {
    // The encoder inherits the directory and looks for the overlay's font there. The whole program
    // changes to it, and does not change back.
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    const EncoderCall call = encoderCall({index, start, end, timeOfDay()},
                                         {video->fileName, video->clipDirectory, video->intraCodec,
                                          video->exportTimestamps, video->startDateTime},
                                         readEncodingSettings());
    outputPath = call.outputPath;
    setToolTip({});
    auto* process = new EncoderProcess(this);
    connect(process, SIGNAL(finished(int, QProcess::ExitStatus)), this, SLOT(processFinished(int)));
    connect(process, SIGNAL(errorOccurred(QProcess::ProcessError)), this,
            SLOT(processError(QProcess::ProcessError)));
    const Grants grants{{video->fileName}, {video->clipDirectory}, {}};
    const RecordingCheck check(*video);
    if (check.isUntouched())
        process->startEncoder(call.arguments, grants);
    else
        process->startEncoder(call.arguments, grants, [check] { return check.flaw(); });
}

/// A crash comes here and, as every end, to `processFinished`: it ends twice, and each time the
/// first clip of the queue is started.
void Clip::processError(QProcess::ProcessError) {
    processFinished(-1);
}

void Clip::processFinished(int exitCode) {
    exportRunning = false;
    const auto* process = qobject_cast<EncoderProcess*>(sender());
    if (sender())
        sender()->deleteLater();
    if (exitCode == 0) {
        status = Exported;
        explain(emptyFileReason(outputPath));
        if (openWhenDone)
            openClip();
    } else {
        status = ExportFailed;
        explain(process ? process->failure() : QString());
    }
    exportQueue.removeAll(this);
    updateText();
    // Goes on also with a clip that an earlier pass for the same run has already started.
    if (isStarting)
        isNextDue = true;
    else if (!exportQueue.isEmpty())
        exportQueue.first()->exportClip(false);
}

/// Says why the export went wrong; an empty `reason`: it did not.
void Clip::explain(const QString& reason) {
    setToolTip(reason.isEmpty() ? reason : Qt::convertFromPlainText(reason, Qt::WhiteSpaceNormal));
    if (!reason.isEmpty())
        ExportNotices::instance().tell(QStringLiteral("%1 #%2: %3")
                                           .arg(video ? video->shortFileName() : QString(),
                                                QString::number(index), reason.simplified()),
                                       video);
}
