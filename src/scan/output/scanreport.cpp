// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scanreport.h"

#include "picturefile.h"
#include "reportpage.h"
#include "wholefile.h"

#include <QDir>
#include <QFileInfo>

namespace {

SearchState stateOf(DetectionOutcome outcome) {
    switch (outcome) {
    case DetectionOutcome::Finished:
        return SearchState::Done;
    case DetectionOutcome::Cancelled:
        return SearchState::CutShort;
    default:
        return SearchState::Failed;
    }
}

} // namespace

ScanReport::ScanReport(const ScanOptions& options)
    : pictures(pictureFolder(options.reportDirectory), options.videos)
    , folder(options.reportDirectory) {
    report.folder = QDir(folder).absolutePath();
    report.threshold = double(options.detection.segmentation.motionThreshold);
    report.startTime = options.exporting.startDateTime;
    for (const QString& video : options.videos) {
        ReportedRecording recording;
        recording.name = video;
        recording.path = QFileInfo(video).absoluteFilePath();
        report.recordings.push_back(recording);
    }
}

QString ScanReport::pictureFolder(const QString& reportFolder) {
    return QDir(reportFolder).filePath(QStringLiteral("pictures"));
}

void ScanReport::addValue(int recording, double time, MotionScore motion) {
    at(recording).add(time, motion);
}

QString ScanReport::addClip(const ClipLine& line) {
    const DetectedClip& found = line.clip;
    ReportedClip clip;
    clip.index = found.index;
    clip.start = found.start;
    clip.end = found.end;
    clip.snapshotTime = found.snapshotTime;
    clip.strength = found.strongestMotion;
    if (line.isExported)
        clip.exportFile = QFileInfo(line.exportFile).absoluteFilePath();
    QString failure = writePicture(found, line.recording, clip);
    at(line.recording).offset = line.played.offset;
    at(line.recording).clips.append(clip);
    return failure;
}

QString ScanReport::writePicture(const DetectedClip& found, int recording,
                                 ReportedClip& clip) const {
    if (found.snapshot.isNull())
        return QStringLiteral("its pictures cannot be scaled");
    const QString path = pictures.pathOf(recording, found.index);
    const QString failure = writePictureFile(found.snapshot, path, FolderLink::Refused);
    if (!failure.isEmpty())
        return QStringLiteral("cannot write the picture %1: %2").arg(path, failure);
    clip.pictureFile = QDir(report.folder).relativeFilePath(QFileInfo(path).absoluteFilePath());
    clip.pictureSize = found.snapshot.size();
    return {};
}

void ScanReport::finish(int recording, DetectionOutcome outcome, const QString& reason) {
    at(recording).state = stateOf(outcome);
    at(recording).reason = reason;
}

QString ScanReport::pageFile() const {
    return QDir(folder).filePath(QStringLiteral("index.html"));
}

QString ScanReport::write() const {
    const ReportPage page(report);
    return writeWholeFile(pageFile(), [&](const PieceSink& sink) { page.write(sink); });
}
