// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionclient.h"
#include "measurement.h"
#include "motionmeasure.h"
#include "pictureclock.h"
#include "rangedpictures.h"

#include <QString>

class PictureSource;
class VideoDecoder;
struct TimedPicture;

/// Everything that a detection can be told. The defaults are the program's.
struct DetectionOptions {
    MeasureOptions measure;
    SegmentationOptions segmentation;
    TimeOptions times;
    TimeRange range;
    bool areKeysWanted = false; ///< looks at key frames alone
    int threads = 0; ///< that decode; 0 = as many as the machine has cores, 1 = the caller's alone
};

/// The road of one recording: open, decode, measure, segment.
class Detection {
public:
    Detection(const DetectionOptions& options, DetectionClient& client);

    /// Reads the whole file. Runs once per object.
    DetectionOutcome run(const QString& fileName);

    /// Why the file could not be read, for a person; empty unless the outcome is a failure.
    QString errorText() const;

    /// After a failure: whether the same bytes would fail anywhere and at any time. False where the
    /// disk, the memory or what is installed may be to blame.
    bool isLasting() const { return isLastingFailure; }

    /// What was measured; once the run has ended.
    const Measurement& measurement() const { return measured; }
    const MotionSeries& motionSeries() const { return measured.series; }

private:
    std::optional<RecordingOrigin> skipAhead(VideoDecoder& decoder);
    DetectionOutcome runOrFail(VideoDecoder& decoder);
    std::optional<DetectionOutcome> runOpened(VideoDecoder& decoder,
                                              std::optional<RecordingOrigin> origin);
    void begin(const TimedPicture& first, const RangedPictures& range, double frameRate);
    void failToOpen(const VideoDecoder& decoder);
    DetectionOutcome failToBegin(const PictureSource& pictures, bool hasPicture);
    DetectionOutcome outcomeOf(const PictureSource& pictures);
    DetectionOutcome failWithoutTimes();

    DetectionOptions options;
    DetectionClient& client;
    QByteArray path; ///< of the recording, in the file system's bytes
    Measurement measured;
    QString error;
    bool isLastingFailure = false;
};
