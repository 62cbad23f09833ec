// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipformat.h"
#include "motionreport.h"
#include "scanoptions.h"
#include "snapshotfolder.h"

/// The report of one call: what its recordings say is collected, and written at the end.
///
/// Each recording may be told of on a thread of its own; `write` comes behind all of them.
class ScanReport {
public:
    /// The folder and the one below it for pictures are there already.
    explicit ScanReport(const ScanOptions& options);

    /// The folder for a report's pictures.
    static QString pictureFolder(const QString& reportFolder);

    /// What was measured at a picture (MotionStrip::add).
    void addValue(int recording, double time, MotionScore motion);

    /// Takes in a clip and writes its picture. Answers why it has none, for a person; empty after
    /// a success.
    QString addClip(const ClipLine& line);

    /// Key frames alone tell where motion is in a recording.
    void markQuick(int recording) { at(recording).isQuick = true; }

    /// The end of a recording; `reason` of a failure.
    void finish(int recording, DetectionOutcome outcome, const QString& reason);

    /// Writes the page as a whole or not at all. Answers why it could not be written; empty after a
    /// success.
    QString write() const;

    QString pageFile() const; ///< the path of the page

private:
    ReportedRecording& at(int recording) { return report.recordings[std::size_t(recording)]; }
    QString writePicture(const DetectedClip& found, int recording, ReportedClip& clip) const;

    SnapshotFolder pictures;
    QString folder; ///< as it was named
    MotionReport report;
};
