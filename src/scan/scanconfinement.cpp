// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scanconfinement.h"

#include "asidefile.h"
#include "confinement.h"
#include "encoderarguments.h"
#include "foldercheck.h"
#include "valuesname.h"

#include <QFileInfo>

#include <cstdio>

namespace {

/// The recordings that named values are of stand nowhere else. Values that somebody has forged may
/// name a folder, and so all that lies below it.
QStringList recordingsOfValues(const std::vector<Recording>& recordings) {
    QStringList files;
    for (const Recording& recording : recordings) {
        if (!recording.valuesFile.isEmpty() && QFileInfo(recording.video).isFile())
            files += recording.video;
    }
    return files;
}

/// The maps of cells beside named values.
QStringList mapsOfValues(const std::vector<Recording>& recordings) {
    QStringList files;
    for (const Recording& recording : recordings) {
        const QString maps =
            recording.valuesFile.isEmpty() ? QString() : cellsPath(recording.valuesFile);
        if (QFileInfo(maps).isFile())
            files += maps;
    }
    return files;
}

/// Only what is there can be granted, and values come as late as the end of the first recording.
/// Where they cannot be written, they can perhaps be read.
void grantValues(const QString& folder, Grants& grants) {
    const bool isWritable = prepareFolder(folder, FolderLink::Followed).isEmpty();
    (isWritable ? grants.writable : grants.readable) += folder;
}

Grants grantsOf(const ScanOptions& options, const std::vector<Recording>& recordings) {
    Grants grants;
    grants.readable =
        options.inputs.places + recordingsOfValues(recordings) + mapsOfValues(recordings);
    for (const QString& folder : {options.snapshotDirectory, options.reportDirectory,
                                  options.exporting.directory, options.camtrap.directory}) {
        if (!folder.isEmpty())
            grants.writable += folder;
    }
    if (!options.valuesDirectory.isEmpty())
        grantValues(options.valuesDirectory, grants);
    if (!options.recap.file.isEmpty())
        grants.writable += QFileInfo(options.recap.file).absolutePath();
    if (!options.exporting.directory.isEmpty() || !options.recap.file.isEmpty())
        grants.programs += encoderPath();
    return grants;
}

} // namespace

void confine(const ScanOptions& options, const std::vector<Recording>& recordings) {
    const bool areCellsAsked = options.detection.detector == Detector::Cells;
    if (areCellsAsked || options.detection.areMapsKept || options.selection.isOfAll())
        AsideFile::instance().open(); // later on it could not be made
    const Confinement confinement(grantsOf(options, recordings));
    const int error = confinement.apply();
    const QString failure = error != 0 ? qt_error_string(error) : confinement.failure();
    if (!failure.isEmpty())
        std::fprintf(stderr, "kestrova-scan: it cannot confine itself, and goes on without: %s\n",
                     qPrintable(failure));
}
