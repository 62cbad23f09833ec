#include "clip.h"

#include "encoderprocess.h"
#include "encodingsettings.h"
#include "timeofday.h"
#include "truncation.h"
#include "video.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QIcon>
#include <QPixmap>
#include <QUrl>

#include <algorithm>
#include <utility>

QList<Clip*> Clip::exportQueue;
bool Clip::exportRunning = false;
bool Clip::isStarting = false;
bool Clip::isNextDue = false;

Clip::Clip(Video* video, int index, const QImage& snapshot, double start, double end,
           double snapshotTime)
    : video(video)
    , index(index)
    , start(start)
    , end(end)
    , snapshotTime(snapshotTime)
    , snapshot(snapshot) {
    setData(Qt::DecorationRole, QIcon(QPixmap::fromImage(snapshot)));
    if (video->autoExport)
        exportClip(false);
    else
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

const char* Clip::statusText(int status) {
    switch (status) {
    case NotExported:
        return "not exported";
    case Exporting:
        return "exporting...";
    case Queued:
        return "queued...";
    case Canceled:
        return "canceled";
    case ExportFailed:
        return "export failed!";
    case Exported:
        return "exported";
    default:
        return "unknown status";
    }
}

void Clip::updateText() {
    const int time = timeOfDay();
    const QString text = QStringLiteral("%1\n#%2 %3:%4:%5 (%6 sec) (%7)")
                             .arg(video ? video->shortFileName() : QString())
                             .arg(index)
                             .arg(time / 3600)
                             .arg(time / 60 % 60, 2, 10, QLatin1Char('0'))
                             .arg(time % 60, 2, 10, QLatin1Char('0'))
                             .arg(truncatedToInt(end - start))
                             .arg(QLatin1String(statusText(status)));
    setData(Qt::DisplayRole, text);
}

int Clip::timeOfDay() const {
    const bool isKnown = video && video->exportTimestamps;
    return secondOfDay(start, isKnown ? &video->startDateTime : nullptr);
}

void Clip::exportClip(bool first) {
    if (!video)
        return;
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

void Clip::openClip() {
    switch (status) {
    case Exported:
        openWhenDone = false;
        QDesktopServices::openUrl(QUrl(QStringLiteral("file:///%1").arg(outputPath)));
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
    auto* process = new EncoderProcess;
    connect(process, SIGNAL(finished(int, QProcess::ExitStatus)), this, SLOT(processFinished(int)));
    connect(process, SIGNAL(errorOccurred(QProcess::ProcessError)), this,
            SLOT(processError(QProcess::ProcessError)));
    process->startEncoder(call.arguments);
}

/// A crash comes here and, as every end, to `processFinished`: it ends twice, and each time the
/// first clip of the queue is started.
void Clip::processError(QProcess::ProcessError) {
    processFinished(-1);
}

void Clip::processFinished(int exitCode) {
    exportRunning = false;
    if (sender())
        sender()->deleteLater();
    if (exitCode == 0) {
        status = Exported;
        if (openWhenDone)
            openClip();
    } else {
        status = ExportFailed;
    }
    exportQueue.removeAll(this);
    updateText();
    // Goes on also with a clip that an earlier pass for the same run has already started.
    if (isStarting)
        isNextDue = true;
    else if (!exportQueue.isEmpty())
        exportQueue.first()->exportClip(false);
}
