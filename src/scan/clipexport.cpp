// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipexport.h"

#include "encoderrun.h"
#include "interrupt.h"
#include "timeofday.h"

#include <QFileInfo>

ClipExport::ClipExport(const QString& video, const ExportOptions& options, ClipFolders& folders,
                       int recording)
    : options(options)
    , folders(folders)
    , recording(recording) {
    // The encoder runs in another directory.
    source.fileName = QFileInfo(video).absoluteFilePath();
    source.exportTimestamps = options.startDateTime.isValid();
    source.startDateTime = options.startDateTime;
}

QString ClipExport::run(ClipLine& line) {
    if (options.directory.isEmpty() || isEnding())
        return {};
    const ClipFolders::Made folder = folders.make(recording);
    if (!folder.failure.isEmpty())
        return QStringLiteral("cannot make a folder for its clips: ") + folder.failure;
    source.clipDirectory = folder.path;
    const DetectedClip& clip = line.clip;
    const int second =
        secondOfDay(clip.start, source.exportTimestamps ? &source.startDateTime : nullptr);
    const EncoderCall call = encoderCall({clip.index, clip.start, clip.end, second}, source,
                                         options.encoding, OverlayClock::VideoStart);
    line.exportFile = call.outputPath;
    QString failure = runEncoder(call);
    line.isExported = failure.isEmpty();
    return failure;
}
