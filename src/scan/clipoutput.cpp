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

void ClipOutput::write(ClipLine& found, const PictureFinder* finder) {
    if (!options.snapshotDirectory.isEmpty())
        found.snapshotFile = writeSnapshot(found.clip, finder);
    exportClip(found);
    if (outputs.report)
        showInReport(found, finder);
    print(outputs.format.clip(found));
}

void ClipOutput::exportClip(ClipLine& found) {
    if (!canBeCut(found.clip.start, found.clip.end)) {
        areAllWritten = false;
        outputs.messages.complain(
            options.videos[index],
            QStringLiteral("the times of clip #%1 make no sense, it cannot be cut out")
                .arg(found.clip.index));
        return;
    }
    const QString failure = exporter.run(found);
    if (failure.isEmpty())
        return;
    areAllWritten = false;
    outputs.messages.complain(found.exportFile.isEmpty() ? options.videos[index] : found.exportFile,
                              failure);
}

void ClipOutput::showInReport(const ClipLine& found, const PictureFinder* finder) {
    const QString failure = outputs.report->addClip(found);
    if (failure.isEmpty())
        return;
    if (!found.clip.snapshot.isNull()) {
        areAllWritten = false;
        outputs.messages.complain(options.videos[index], failure);
    } else if (options.snapshotDirectory.isEmpty()) { // else it has been said
        outputs.messages.complain(options.videos[index], missingPicture(finder));
    }
}

void ClipOutput::print(const QByteArray& lines) {
    outputs.messages.makeRoom();
    outputs.clips.write(index, lines);
}

/// Why a clip has no picture. One that cannot be scaled is the recording's own doing.
QString ClipOutput::missingPicture(const PictureFinder* finder) {
    if (!finder || finder->errorText().isEmpty())
        return QStringLiteral("its pictures cannot be scaled");
    areAllWritten = false;
    return finder->errorText();
}

/// The path of the picture written, empty if there is none.
QString ClipOutput::writeSnapshot(const DetectedClip& clip, const PictureFinder* finder) {
    QString path = outputs.snapshots.pathOf(index, clip.index);
    if (clip.snapshot.isNull()) {
        outputs.messages.complain(options.videos[index], missingPicture(finder));
        return {};
    }
    const QString failure = writePictureFile(clip.snapshot, path, FolderLink::Followed);
    if (failure.isEmpty())
        return path;
    areAllWritten = false;
    outputs.messages.complain(path, QStringLiteral("cannot write the picture: %1").arg(failure));
    return {};
}
