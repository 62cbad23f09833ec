// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "damage.h"
#include "messages.h"
#include "playedrecording.h"
#include "recording.h"
#include "scanoptions.h"
#include "segmentation.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

/// What of a clip lies in one recording. Seconds from that one's first picture.
struct ClipPart {
    Recording* recording = nullptr;
    PlayedRecording played;
    double start = 0.0;
    double end = 0.0;
    double offset = 0.0; ///< from the first picture of the clip's own recording to this one's
};

/// One clip as it is reported. One that goes on in other recordings is that of the recording in
/// which it begins, and has its times from there.
struct ClipLine {
    Recording& recording;
    PlayedRecording played;
    DetectedClip clip;
    bool isQuick = false;      ///< found by a look at key frames alone
    QString snapshotFile{};    ///< empty: none written
    QString exportFile{};      ///< empty: its export was not tried
    bool isExported = false;   ///< the file was written without a failure
    QVector<ClipPart> parts{}; ///< in their order, the one of its recording first

    /// Pictures per second at which those of the recording are numbered; 0: they have times.
    double frameRate = 0.0;

    bool goesOn() const { return parts.size() > 1; }
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

    /// The share of it that was looked at, 0 to 1, of one that was looked at in parts and not as a
    /// whole.
    std::optional<double> looked{};
    bool isPartly = false; ///< no more was wanted of it
    Damage damage{};       ///< of one that is finished

    /// Of one that is finished and in which no clip was found.
    std::optional<StrongestMotion> strongest{};
};

/// How clips are written down: whole lines, with their line ends. `clip`, `provisional` and
/// `videoEnd` may be called on any thread.
class ClipFormat {
public:
    virtual ~ClipFormat() = default;

    virtual QByteArray header() const { return {}; }
    virtual QByteArray clip(const ClipLine& line) = 0;

    /// A clip that may still become another one, once the share `looked` of all recordings has been
    /// looked at, 0 to 1; nothing where such clips are not written down.
    virtual QByteArray provisional(const ClipLine&, double /*looked*/) const { return {}; }

    virtual QByteArray videoEnd(const VideoLine&) { return {}; }

    /// What stands behind all recordings. Asked for once, whatever has failed before.
    virtual QByteArray footer() { return {}; }

    /// Writes what stands in files of its own. Asked for once, behind the footer. False, after a
    /// complaint, where something is missing of it.
    virtual bool save(Messages&) { return true; }

    /// Why clips of this recording cannot be written down and are left out; empty if they can.
    virtual QString refusal(const Recording&) const { return {}; }
};

/// In what order `ClipFormat::clip` is asked for the clips that are to be written down.
enum class ClipCalls {
    AnyRecording, ///< those of one recording in their order, of several side by side
    InOrder       ///< each when its turn has come
};

/// What lines tell besides what they always do.
struct ClipFields {
    bool exports = false; ///< what became of each clip's export
    bool clocks = false;  ///< when clips started and ended by the clock on the wall
    bool parts = false;   ///< in which recordings each lies
};

std::unique_ptr<ClipFormat> makeClipFormat(ReportFormat format, ClipFields fields,
                                           ClipCalls calls = ClipCalls::AnyRecording);
