// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipexport.h"

#include "containername.h"
#include "encoderrun.h"
#include "timeofday.h"

#include <QFileInfo>

#include <utility>

ClipExport::ClipExport(const QString& video, const ExportOptions& options, ClipFolders& folders,
                       int recording, std::function<bool()> isEnding)
    : options(options)
    , folders(folders)
    , recording(recording)
    , isEnding(std::move(isEnding)) {
    // The encoder runs in another directory.
    source.fileName = QFileInfo(video).absoluteFilePath();
    source.exportTimestamps = options.startDateTime.isValid();
    source.startDateTime = options.startDateTime;
}

QString ClipExport::run(ClipLine& line, WatchedRecording* video) {
    if (options.directory.isEmpty() || isEnding())
        return {};
    const QString reason = refusal(video);
    if (!reason.isEmpty())
        return QStringLiteral("clip #%1 is not exported: %2")
            .arg(QString::number(line.clip.index), reason);
    const ClipFolders::Made folder = folders.make(recording);
    if (!folder.failure.isEmpty())
        return QStringLiteral("cannot make a folder for its clips: ") + folder.failure;
    source.clipDirectory = folder.path;
    const EncoderCall call = callFor(line.clip);
    line.exportFile = call.outputPath;
    QString failure = runEncoder(call, isEnding);
    if (failure.isEmpty() && video && !video->flaw().isEmpty())
        failure = QStringLiteral("this may show something else: the recording was changed while it "
                                 "was cut out");
    line.isExported = failure.isEmpty();
    return failure;
}

/// Why nothing can be cut out of the recording as it is now. Asked for each clip, but for what
/// cannot change while the recording is the same.
QString ClipExport::refusal(WatchedRecording* video) {
    QString flaw = video ? video->flaw() : QString();
    if (!flaw.isEmpty() || !source.inputFormat.isEmpty())
        return flaw;
    const ContainerName container = containerNameOf(source.fileName, isEnding);
    source.inputFormat = container.name;
    return container.error;
}

EncoderCall ClipExport::callFor(const DetectedClip& clip) const {
    const int second =
        secondOfDay(clip.start, source.exportTimestamps ? &source.startDateTime : nullptr);
    return encoderCall({clip.index, clip.start, clip.end, second}, source, options.encoding,
                       OverlayClock::VideoStart);
}
