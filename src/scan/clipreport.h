#pragma once

#include "scanoptions.h"
#include "segmentation.h"

#include <QIODevice>
#include <QString>

#include <memory>

/// One clip as it is reported.
struct ClipLine {
    QString video; ///< as the person wrote it
    DetectedClip clip;
    QString snapshotFile;    ///< empty: none written
    QString exportFile;      ///< empty: its export was not tried
    bool isExported = false; ///< the file was written without a failure
};

/// The end of one recording.
struct VideoLine {
    QString video;
    DetectionOutcome outcome = DetectionOutcome::Finished;
    qint64 frames = 0; ///< pictures decoded
    int clips = 0;
    double seconds = 0.0; ///< of the recording, from its first to its last picture
};

/// Prints clips in one of the report formats, each line in one write, at once.
class ClipReport {
public:
    virtual ~ClipReport() = default;

    virtual void begin() {}
    virtual void addClip(const ClipLine& line) = 0;
    virtual void endVideo(const VideoLine&) {}
};

/// A report on `output`, which must be open and outlive it. `withExports`: it tells of exports.
std::unique_ptr<ClipReport> makeClipReport(ReportFormat format, bool withExports,
                                           QIODevice& output);

/// "0:01:02.345": hours, minutes, seconds, milliseconds (rounded); a minus sign where negative.
QString clockText(double seconds);
