#pragma once

#include "scanoptions.h"
#include "segmentation.h"

#include <QByteArray>
#include <QString>

/// One clip as it is reported.
struct ClipLine {
    QString video; ///< as the person wrote it
    DetectedClip clip;
    QString snapshotFile; ///< empty: none written
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

/// The one object for each format.
const ClipFormat& clipFormat(ReportFormat format);

/// "0:01:02.345": hours, minutes, seconds, milliseconds (rounded); a minus sign where negative.
QString clockText(double seconds);
