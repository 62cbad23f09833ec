// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipmerger.h"
#include "clipoutput.h"
#include "detectionfindings.h"
#include "measuringend.h"
#include "motionremark.h"
#include "recordingselection.h"

#include <memory>

/// Follows the detections of one recording, and passes on what they tell: clips, the trace, the
/// report, and at last how it has ended.
class RecordingOutput : public DetectionFindings {
public:
    /// All must outlive this object.
    RecordingOutput(Recording& recording, const ScanOptions& options, ScanOutputs& outputs);

    /// Key frames alone tell where motion is, or where it is searched exactly.
    void setQuick(bool isQuick) { line.isQuick = isQuick; }

    /// Clips come without pictures from now on. Those that count get the one that `picture` makes
    /// of a time, in seconds from the first picture.
    using PictureAt = std::function<ClipPicturePointer(double seconds)>;
    void setPictures(PictureAt picture) { pictureAt = std::move(picture); }

    /// What is told from now on is of ranges of the recording. Between them it is as long and as
    /// lively as its key frames say, `looked`, which must outlive this object.
    void beginRanges(const Measurement& looked);
    void endRanges(); ///< after the last one

    void endClips(); ///< nothing more comes that a clip could be merged with

    /// Where it is decided on together with others, what is found comes through these instead of
    /// `clipFound`. A clip that begins in this recording, in whose seconds it is told, and which
    /// lies in `parts` (ClipLine); and what lies in this one of a clip that has begun in another.
    void continuedClipFound(const DetectedClip& clip, const QVector<ClipPart>& parts);
    void clipGoesOn(double start, double end);

    /// What programs see of it that play it; once it is opened.
    const PlayedRecording& playedAs() const { return played; }

    /// What was told of so far: whether a remark should be made on it, and what that should know of
    /// other options (remarkOn).
    bool isRemarkable() const;
    bool isNothingFound() const { return seen.clips == 0; }
    void setOtherwise(const QString& findings) { otherwise = findings; }

    /// The cells that are left out of the pictures, of this many pixels.
    void tellRestless(const CellBits& restless, QSize pictures);

    /// Whether what is told of is looked at only now, and taken from the budget.
    void setSpending(bool isSpending) { isLookedAtNow = isSpending; }

    /// What comes next lies at `time`, in seconds from the first picture: nothing was looked at up
    /// to there.
    void leaveOut(double time);

    /// The share that was looked at, 0 to 1, of its `length` in seconds, which is 0 where that is
    /// unknown; with `isEnough` no more was wanted.
    void setLooked(double share, double length, bool isEnough);
    bool isPartly() const { return line.isPartly; }

    /// Says how it has ended; `damage` is what is missing of one that is finished.
    void finish(const MeasuringEnd& end, const Damage& damage);

    double seconds() const { return line.seconds; } ///< of the recording, that were told of
    bool areClipsWritten() const { return clips->areWritten(); }

    void opened(const StreamFacts& stream) override;
    void frameProcessed(const FrameReport& frame) override;
    void clipFound(const DetectedClip& clip) override;

private:
    void noteNumbering(double frameRate);
    void pass(const std::optional<DetectedClip>& clip);
    void take(const DetectedClip& clip, const QVector<ClipPart>& parts);
    void write(ClipLine found);
    void note(const QString& remarked);
    void passLooked(double time);
    void show(double time, MotionScore motion);
    void addStretch(double start, double end);
    QString summary() const;
    double searchedSeconds() const;
    QString remark() const;
    QString lookedText() const;

    Recording& recording;
    const ScanOptions& options;
    ScanOutputs& outputs;
    std::shared_ptr<ClipOutput> clips; ///< shared with clips that wait until all are found
    std::optional<ClipMerger> merger;  ///< where clips are merged
    RecordingSelection selection;
    PictureAt pictureAt; ///< null: clips have their pictures
    VideoLine line;
    SeenMotion seen;
    QString otherwise; ///< what is known of other options
    PlayedRecording played;
    double frameRate = 0.0;              ///< at which pictures are numbered; 0: they have times
    int comeClips = 0;                   ///< from other recordings, which go on in this one
    int foundClips = 0;                  ///< before any are merged, in all ranges
    bool hasBegunAgain = true;           ///< the next picture is the first that is compared
    bool isLookedAtNow = false;          ///< the budget is spent on it
    bool isRegionEmpty = false;          ///< which has been said
    const Measurement* looked = nullptr; ///< null: no ranges
    int nextLooked = 0;                  ///< of its values, to be passed
};
