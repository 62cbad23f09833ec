// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipmerger.h"
#include "clipoutput.h"
#include "detectionfindings.h"
#include "measuringend.h"
#include "motionremark.h"

/// Follows the detections of one recording, and passes on what they tell: clips, the trace, the
/// report, and at last how it has ended.
class RecordingOutput : public DetectionFindings {
public:
    /// All must outlive this object.
    RecordingOutput(Recording& recording, const ScanOptions& options, ScanOutputs& outputs);

    /// Key frames alone tell where motion is, or where it is searched exactly.
    void setQuick(bool isQuick) { line.isQuick = isQuick; }

    /// What is told from now on is of ranges of the recording. Between them it is as long and as
    /// lively as its key frames say, `looked`, which must outlive this object.
    void beginRanges(const Measurement& looked);
    void endRanges(); ///< after the last one

    void endClips(); ///< nothing more comes that a clip could be merged with

    /// What was told of so far: whether a remark should be made on it, and what that should know of
    /// other options (remarkOn).
    bool isRemarkable() const;
    bool isNothingFound() const { return seen.clips == 0; }
    void setOtherwise(const QString& findings) { otherwise = findings; }

    /// The cells that are left out of the pictures, of this many pixels.
    void tellRestless(const CellBits& restless, QSize pictures);

    /// Says how it has ended; `damage` is what is missing of one that is finished.
    void finish(const MeasuringEnd& end, const Damage& damage);

    double seconds() const { return line.seconds; } ///< of the recording, that were told of
    bool areClipsWritten() const { return clips.areWritten(); }

    void opened(const StreamFacts& stream) override;
    void frameProcessed(const FrameReport& frame) override;
    void clipFound(const DetectedClip& clip) override;

private:
    void noteNumbering(double frameRate);
    void pass(const std::optional<DetectedClip>& clip);
    void passLooked(double time);
    void show(double time, MotionScore motion);
    double searchedSeconds() const;
    QString remark() const;

    Recording& recording;
    const ScanOptions& options;
    ScanOutputs& outputs;
    ClipOutput clips;
    std::optional<ClipMerger> merger; ///< where clips are merged
    VideoLine line;
    SeenMotion seen;
    QString otherwise; ///< what is known of other options
    PlayedRecording played;
    int foundClips = 0;                  ///< before any are merged, in all ranges
    bool hasBegunAgain = true;           ///< the next picture is the first that is compared
    bool isRegionEmpty = false;          ///< which has been said
    const Measurement* looked = nullptr; ///< null: no ranges
    int nextLooked = 0;                  ///< of its values, to be passed
};
