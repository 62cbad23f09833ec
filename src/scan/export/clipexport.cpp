// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipexport.h"

#include "concatsource.h"
#include "containername.h"
#include "encoderrun.h"
#include "encodertimes.h"

#include <algorithm>
#include <utility>

namespace {

bool isAnyChanged(const ClipLine& line) {
    return std::any_of(line.parts.begin(), line.parts.end(), [](const ClipPart& part) {
        auto& watched = part.recording->watched;
        return watched && !watched->flaw().isEmpty();
    });
}

} // namespace

ClipExport::ClipExport(Recording& recording, const ExportOptions& options, ClipFolders& folders,
                       std::function<bool()> isEnding)
    : recording(recording)
    , options(options)
    , folders(folders)
    , isEnding(std::move(isEnding)) {
    source.fileName = recording.path; // the encoder runs in another directory
}

QString ClipExport::run(ClipLine& line) {
    if (options.directory.isEmpty() || isEnding())
        return {};
    // Which for a recording that another one goes on in is known once they are put together.
    source.exportTimestamps = options.areTimesWritten && recording.start.isKnown();
    source.startDateTime = recording.start.wallClockAsOf(line.clip.start);
    const QString reason = refusal();
    if (!reason.isEmpty())
        return QStringLiteral("clip #%1 is not exported: %2")
            .arg(QString::number(line.clip.index), reason);
    QString failure = source.clipDirectory.isEmpty() ? makeFolder() : QString();
    if (!failure.isEmpty())
        return QStringLiteral("cannot make a folder for its clips: ") + failure;
    failure = line.goesOn() ? cutOutOfSeveral(line) : cutOut(line);
    if (failure.isEmpty() && isAnyChanged(line))
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

QString ClipExport::cutOut(ClipLine& line) {
    const EncoderCall call = callFor(line.clip, source);
    line.exportFile = call.outputPath;
    return runEncoder(call, isEnding);
}

/// Recordings of one codec and size can differ in what a stream copy needs to have alike.
QString ClipExport::cutOutOfSeveral(ClipLine& line) {
    const ConcatSource several(line, source, isEnding);
    if (!several.failure().isEmpty())
        return several.failure();
    const EncoderCall copy = callFor(line.clip, several.video());
    line.exportFile = copy.outputPath;
    QString failure = runEncoder(copy, isEnding);
    const EncoderCall anew = callFor(line.clip, several.video(), true);
    if (failure.isEmpty() || isEnding() || anew.arguments == copy.arguments)
        return failure;
    return runEncoder(anew, isEnding);
}

EncoderCall ClipExport::callFor(const DetectedClip& clip, const EncodedVideo& video,
                                bool isEncodedAnew) const {
    const int second =
        secondOfDay(clip.start, source.exportTimestamps ? &source.startDateTime : nullptr);
    EncodingSettings settings = options.encoding;
    settings.doTranscoding = settings.doTranscoding || isEncodedAnew;
    EncodedVideo shown = video; // whose date is that of the clip
    shown.startDateTime = source.startDateTime.addSecs(truncatedToInt(clip.start));
    return encoderCall({clip.index, clip.start, clip.end, second}, shown, settings,
                       OverlayClock::VideoStart);
}
