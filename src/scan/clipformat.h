#pragma once

#include "scanoptions.h"
#include "segmentation.h"

#include <QByteArray>
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

/// How clips are written down: whole lines, with their line ends.
class ClipFormat {
public:
    virtual ~ClipFormat() = default;

    virtual QByteArray header() const { return {}; }
    virtual QByteArray clip(const ClipLine& line) const = 0;
    virtual QByteArray videoEnd(const VideoLine&) const { return {}; }
};

/// `withExports`: lines tell what became of each clip's export.
std::unique_ptr<ClipFormat> makeClipFormat(ReportFormat format, bool withExports);

/// "0:01:02.345": hours, minutes, seconds, milliseconds (rounded); a minus sign where negative.
QString clockText(double seconds);
