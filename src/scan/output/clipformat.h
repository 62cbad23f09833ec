// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "damage.h"
#include "playedrecording.h"
#include "recording.h"
#include "scanoptions.h"
#include "segmentation.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

/// One clip as it is reported.
struct ClipLine {
    Recording& recording;
    PlayedRecording played;
    DetectedClip clip;
    bool isQuick = false;    ///< found by a look at key frames alone
    QString snapshotFile{};  ///< empty: none written
    QString exportFile{};    ///< empty: its export was not tried
    bool isExported = false; ///< the file was written without a failure
};

/// The strongest motion of a recording.
struct StrongestMotion {
    MotionScore motion;
    double time = 0.0; ///< seconds from the first picture
};

/// The end of one recording.
struct VideoLine {
    const Recording& recording;
    DetectionOutcome outcome = DetectionOutcome::Finished;
    qint64 frames = 0; ///< pictures decoded
    int clips = 0;
    bool isQuick = false; ///< key frames alone were looked at
    double seconds = 0.0; ///< of the recording, from its first to its last picture
    Damage damage{};      ///< of one that is finished

    /// Of one that is finished and in which no clip was found.
    std::optional<StrongestMotion> strongest{};
};

/// How clips are written down: whole lines, with their line ends. `clip` and `videoEnd` may be
/// called on any thread.
class ClipFormat {
public:
    virtual ~ClipFormat() = default;

    virtual QByteArray header() const { return {}; }
    virtual QByteArray clip(const ClipLine& line) = 0;
    virtual QByteArray videoEnd(const VideoLine&) const { return {}; }

    /// What stands behind all recordings. Asked for once, whatever has failed before.
    virtual QByteArray footer() { return {}; }

    /// Why clips of this recording cannot be written down and are left out; empty if they can.
    virtual QString refusal(const Recording&) const { return {}; }
};

/// `withExports`: lines tell what became of each clip's export.
std::unique_ptr<ClipFormat> makeClipFormat(ReportFormat format, bool withExports);
