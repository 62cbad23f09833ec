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
    for (const ClipPart& part : line.parts) {
        if (line.goesOn())
            clip.parts.append({part.recording->place, part.start, part.end, part.offset});
    }
    QString failure =
        writeReportPicture(found.snapshot, line.recording.reportPictures, report.folder, clip);
    ReportedRecording& reported = *line.recording.reported;
    reported.offset = line.played.offset;
    reported.clips.append(clip);
    return failure;
}

QString ScanReport::pageFile() const {
    return reportPage(folder);
}

QString ScanReport::write() const {
    return writeReportPage(report, pageFile());
}
