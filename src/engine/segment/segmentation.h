// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clippicture.h"
#include "motionseries.h"
#include "motionvote.h"
#include "snapshotcandidates.h"

#include <QImage>

#include <optional>

/// How many comparisons the voting window holds at least where key frames alone were looked at,
/// which can lie far apart.
constexpr int fewestQuickComparisons = 2;

/// How motion values become clips. Seconds are those of the recording.
struct SegmentationOptions {
    double prerecord = 1.0;  ///< seconds before the voting window at which a clip starts
    double postrecord = 1.0; ///< seconds of quiet after which a clip ends
    double minimum = 5.0;    ///< seconds, 0 or more; length of the voting window
    MotionThreshold motionThreshold;
    int fewestCompared = 0; ///< the window is widened where it holds fewer motion values
};

/// One stretch of motion. Times in seconds from the first picture of the recording.
struct DetectedClip {
    int index = 0;   ///< 0 for the first clip of a recording
    QImage snapshot; ///< 320 pixels wide; null if it cannot be had or its format not be scaled
    double start = 0.0;
    double end = 0.0;
    double snapshotTime = 0.0;
    MotionScore strongestMotion{}; ///< the one for which the snapshot was chosen
    QString snapshotFlaw{}; ///< why it cannot be had, for a person; empty if its format is to blame
};

/// Turns the motion values of one recording into clips.
///
/// A clip opens when motion fills at least half of the last `minimum` seconds before the newest
/// frame, and closes when the value has stayed at or below the threshold for more than `postrecord`
/// seconds. Consecutive clips may overlap. Knows nothing of decoding and of threads.
class ClipSegmenter {
public:
    /// `firstTime` and `firstPicture` are those of the first picture that is looked at, `origin` is
    /// the time of the recording's first picture; seconds.
    ClipSegmenter(const SegmentationOptions& options, double origin, double firstTime,
                  ClipPicturePointer firstPicture);
    ClipSegmenter(const ClipSegmenter&) = delete;
    ClipSegmenter& operator=(const ClipSegmenter&) = delete;

    /// Takes in the next frame; answers the clip that it closes, if any.
    std::optional<DetectedClip> addFrame(MotionScore motion, double time,
                                         ClipPicturePointer picture);

    /// Ends the recording; answers the clip that is still open, ending at the newest frame.
    std::optional<DetectedClip> finish();

    /// No clip that is still to be answered starts before this: seconds from the first picture.
    /// Holds while times do not run backwards.
    double earliestStart() const;

    /// What was taken in so far, but for what was forgotten.
    const MotionSeries& motionSeries() const { return series; }

    /// Drops what no clip depends on any more, as long as times do not run backwards.
    void forgetOld();

private:
    std::optional<DetectedClip> continueClip(MotionScore motion, double time,
                                             const ClipPicturePointer& picture);
    double startOf(double time) const;
    void openClip(double time);
    DetectedClip closeClip(double time);

    SegmentationOptions options;
    double origin; ///< clips count their times from here
    MotionSeries series;
    MotionVote vote;
    SnapshotCandidates candidates;
    ClipPicturePointer previousPicture;
    double previousTime;

    bool inClip = false;
    int clipIndex = 0;
    double notBefore = -1000.0; ///< a clip may open only on a frame whose time is greater
    double clipStart = -1000.0;
    double lastMotionTime = 0.0;
    MotionScore bestMotion;
    ClipPicturePointer bestPicture;
    double snapshotTime = -1.0;
};
