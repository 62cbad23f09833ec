// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scanreport.h"

#include "outputfiles.h"
#include "reportpage.h"
#include "snapshotfolder.h"
#include "writing.h"

#include <QDir>
#include <QFileInfo>

ScanReport::ScanReport(const ScanOptions& options, std::vector<Recording>& recordings)
    : folder(options.reportDirectory) {
    report.folder = QDir(folder).absolutePath();
    report.detector = options.detection.detector;
    report.threshold = double(options.detection.segmentation.motionThreshold.value);
    report.startTime = options.exporting.startDateTime;
    report.recordings.resize(recordings.size());
    SnapshotFolder pictures(pictureFolder(folder));
    for (Recording& recording : recordings) {
        recording.reportPictures = pictures.next(recording.video);
        recording.reported = &report.recordings[std::size_t(recording.place)];
        recording.reported->name = recording.video;
        recording.reported->path = recording.path;
        recording.reported->histogram = MotionHistogram(report.detector);
    }
}

QString ScanReport::pictureFolder(const QString& reportFolder) {
    return QDir(reportFolder).filePath(QStringLiteral("pictures"));
}

QString ScanReport::addClip(const ClipLine& line) const {
    const DetectedClip& found = line.clip;
    ReportedClip clip;
    clip.index = found.index;
    clip.start = found.start;
    clip.end = found.end;
    clip.snapshotTime = found.snapshotTime;
    clip.strength = found.strongestMotion;
    if (line.isExported)
        clip.exportFile = QFileInfo(line.exportFile).absoluteFilePath();
    QString failure = writePicture(line, clip);
    line.recording.reported->offset = line.played.offset;
    line.recording.reported->clips.append(clip);
    return failure;
}

QString ScanReport::writePicture(const ClipLine& line, ReportedClip& clip) const {
    const QImage& picture = line.clip.snapshot;
    if (picture.isNull())
        return QStringLiteral("its pictures cannot be scaled");
    const QString path = snapshotPath(line.recording.reportPictures, line.clip.index);
    const QString failure = writePictureFile(picture, path, FolderLink::Refused);
    if (!failure.isEmpty())
        return QStringLiteral("cannot write the picture %1: %2").arg(path, failure);
    clip.pictureFile = QDir(report.folder).relativeFilePath(QFileInfo(path).absoluteFilePath());
    clip.pictureSize = picture.size();
    return {};
}

QString ScanReport::pageFile() const {
    return QDir(folder).filePath(QStringLiteral("index.html"));
}

QString ScanReport::write() const {
    const ReportPage page(report);
    return writeWholeFile(pageFile(), [&](const PieceSink& sink) { page.write(sink); });
}
