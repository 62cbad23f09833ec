// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipoutput.h"

#include "encodertimes.h"
#include "interrupt.h"
#include "picturefile.h"
#include "snapshotfolder.h"

ClipOutput::ClipOutput(Recording& recording, const ScanOptions& options, ScanOutputs& outputs)
    : recording(recording)
    , options(options)
    , outputs(outputs)
    , exporter(recording, options.exporting, outputs.folders, isEnding) {}

bool ClipOutput::make(ClipLine& found) {
    if (!options.snapshotDirectory.isEmpty())
        found.snapshotFile = writeSnapshot(found.clip);
    exportClip(found);
    if (outputs.report)
        showInReport(found);
    return areAllWritten;
}

void ClipOutput::exportClip(ClipLine& found) {
    if (!canBeCut(found.clip.start, found.clip.end)) {
        fail(recording.video,
             QStringLiteral("the times of clip #%1 make no sense, it cannot be cut out")
                 .arg(found.clip.index));
        return;
    }
    const QString failure = exporter.run(found);
    if (!failure.isEmpty())
        fail(found.exportFile.isEmpty() ? recording.video : found.exportFile, failure);
}

void ClipOutput::showInReport(const ClipLine& found) {
    const QString failure = outputs.report->addClip(found);
    if (failure.isEmpty())
        return;
    if (!found.clip.snapshot.isNull())
        fail(recording.video, failure);
    else if (options.snapshotDirectory.isEmpty()) // else it has been said
        tellOfMissingPicture(found.clip);
}

void ClipOutput::print(const QByteArray& lines) {
    outputs.messages.makeRoom();
    recording.clips->write(lines);
}

/// One that cannot be scaled is the recording's own doing. An interrupted scan makes none any more.
void ClipOutput::tellOfMissingPicture(const DetectedClip& clip) {
    if (isEnding())
        return;
    if (clip.snapshotFlaw.isEmpty())
        outputs.messages.warn(recording.video, QStringLiteral("its pictures cannot be scaled"));
    else
        fail(recording.video, QStringLiteral("clip #%1 has no picture: %2")
                                  .arg(QString::number(clip.index), clip.snapshotFlaw));
}

/// The path of the picture written, empty if there is none.
QString ClipOutput::writeSnapshot(const DetectedClip& clip) {
    if (clip.snapshot.isNull()) {
        tellOfMissingPicture(clip);
        return {};
    }
    QString path = snapshotPath(recording.snapshots, clip.index);
    const QString failure = writePictureFile(clip.snapshot, path, FolderLink::Followed);
    if (failure.isEmpty())
        return path;
    fail(path, QStringLiteral("cannot write the picture: %1").arg(failure));
    return {};
}

void ClipOutput::fail(const QString& subject, const QString& reason) {
    areAllWritten = false;
    outputs.messages.complain(subject, reason);
}
