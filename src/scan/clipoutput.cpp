// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipoutput.h"

#include "cutrange.h"
#include "picturefile.h"

ClipOutput::ClipOutput(int index, const ScanOptions& options, ScanOutputs& outputs)
    : index(index)
    , options(options)
    , outputs(outputs)
    , exporter(outputs.exports[std::size_t(index)]) {}

void ClipOutput::write(ClipLine& found, WatchedRecording* video) {
    if (!options.snapshotDirectory.isEmpty())
        found.snapshotFile = writeSnapshot(found.clip);
    exportClip(found, video);
    if (outputs.report)
        showInReport(found);
    print(outputs.format.clip(found));
}

void ClipOutput::exportClip(ClipLine& found, WatchedRecording* video) {
    if (!canBeCut(found.clip.start, found.clip.end)) {
        areAllWritten = false;
        outputs.messages.complain(
            options.videos[index],
            QStringLiteral("the times of clip #%1 make no sense, it cannot be cut out")
                .arg(found.clip.index));
        return;
    }
    const QString failure = exporter.run(found, video);
    if (failure.isEmpty())
        return;
    areAllWritten = false;
    outputs.messages.complain(found.exportFile.isEmpty() ? options.videos[index] : found.exportFile,
                              failure);
}

void ClipOutput::showInReport(const ClipLine& found) {
    const QString failure = outputs.report->addClip(found);
    if (failure.isEmpty())
        return;
    if (!found.clip.snapshot.isNull()) {
        areAllWritten = false;
        outputs.messages.complain(options.videos[index], failure);
    } else if (options.snapshotDirectory.isEmpty()) { // else it has been said
        complainOfMissingPicture(found.clip);
    }
}

void ClipOutput::print(const QByteArray& lines) {
    outputs.messages.makeRoom();
    outputs.clips.write(index, lines);
}

/// One that cannot be scaled is the recording's own doing.
void ClipOutput::complainOfMissingPicture(const DetectedClip& clip) {
    const bool isFailure = !clip.snapshotFlaw.isEmpty();
    areAllWritten = areAllWritten && !isFailure;
    outputs.messages.complain(options.videos[index],
                              isFailure ? QStringLiteral("clip #%1 has no picture: %2")
                                              .arg(QString::number(clip.index), clip.snapshotFlaw)
                                        : QStringLiteral("its pictures cannot be scaled"));
}

/// The path of the picture written, empty if there is none.
QString ClipOutput::writeSnapshot(const DetectedClip& clip) {
    QString path = outputs.snapshots.pathOf(index, clip.index);
    if (clip.snapshot.isNull()) {
        complainOfMissingPicture(clip);
        return {};
    }
    const QString failure = writePictureFile(clip.snapshot, path, FolderLink::Followed);
    if (failure.isEmpty())
        return path;
    areAllWritten = false;
    outputs.messages.complain(path, QStringLiteral("cannot write the picture: %1").arg(failure));
    return {};
}
