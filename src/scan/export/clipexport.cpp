// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipexport.h"

#include "containername.h"
#include "encoderrun.h"
#include "encodertimes.h"

#include <utility>

ClipExport::ClipExport(Recording& recording, const ExportOptions& options, ClipFolders& folders,
                       std::function<bool()> isEnding)
    : recording(recording)
    , options(options)
    , folders(folders)
    , isEnding(std::move(isEnding)) {
    source.fileName = recording.path; // the encoder runs in another directory
    source.exportTimestamps = options.startDateTime.isValid();
    source.startDateTime = options.startDateTime;
}

QString ClipExport::run(ClipLine& line) {
    if (options.directory.isEmpty() || isEnding())
        return {};
    const QString reason = refusal();
    if (!reason.isEmpty())
        return QStringLiteral("clip #%1 is not exported: %2")
            .arg(QString::number(line.clip.index), reason);
    QString failure = source.clipDirectory.isEmpty() ? makeFolder() : QString();
    if (!failure.isEmpty())
        return QStringLiteral("cannot make a folder for its clips: ") + failure;
    const EncoderCall call = callFor(line.clip);
    line.exportFile = call.outputPath;
    failure = runEncoder(call, isEnding);
    if (failure.isEmpty() && recording.watched && !recording.watched->flaw().isEmpty())
        failure = QStringLiteral("this may show something else: the recording was changed while it "
                                 "was cut out");
    line.isExported = failure.isEmpty();
    return failure;
}

/// Why nothing can be cut out of the recording as it is now. Asked for each clip, but for what
/// cannot change while the recording is the same.
QString ClipExport::refusal() {
    QString flaw = recording.watched ? recording.watched->flaw() : QString();
    if (!flaw.isEmpty() || !source.inputFormat.isEmpty())
        return flaw;
    const ContainerName container = containerNameOf(source.fileName, isEnding);
    source.inputFormat = container.name;
    return container.error;
}

QString ClipExport::makeFolder() {
    const ClipFolders::Made folder = folders.make(recording);
    source.clipDirectory = folder.path;
    return folder.failure;
}

EncoderCall ClipExport::callFor(const DetectedClip& clip) const {
    const int second =
        secondOfDay(clip.start, source.exportTimestamps ? &source.startDateTime : nullptr);
    return encoderCall({clip.index, clip.start, clip.end, second}, source, options.encoding,
                       OverlayClock::VideoStart);
}
