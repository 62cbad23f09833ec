// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scanreport.h"

#include "reportfolder.h"
#include "snapshotfolder.h"

#include <QDir>
#include <QFileInfo>

ScanReport::ScanReport(const ScanOptions& options, std::vector<Recording>& recordings)
    : folder(options.reportDirectory) {
    report.folder = QDir(folder).absolutePath();
    report.detector = options.detection.detector;
    report.threshold = double(options.detection.segmentation.motionThreshold.value);
    report.startTime = options.exporting.startDateTime;
    report.recordings.resize(recordings.size());
    SnapshotFolder pictures(reportPictureFolder(folder));
    for (Recording& recording : recordings) {
        recording.reportPictures = pictures.next(recording.video);
        recording.reported = &report.recordings[std::size_t(recording.place)];
        recording.reported->name = recording.video;
        recording.reported->path = recording.path;
        recording.reported->histogram = MotionHistogram(report.detector);
    }
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
    QString failure =
        writeReportPicture(found.snapshot, line.recording.reportPictures, report.folder, clip);
    line.recording.reported->offset = line.played.offset;
    line.recording.reported->clips.append(clip);
    return failure;
}

QString ScanReport::pageFile() const {
    return reportPage(folder);
}

QString ScanReport::write() const {
    return writeReportPage(report, pageFile());
}
