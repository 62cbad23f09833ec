// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chunksnapshot.h"
#include "detectionclient.h"
#include "measurement.h"
#include "motionmeasure.h"
#include "pictureclock.h"
#include "picturekeeper.h"
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
    bool isKeyframesOnly = false;   ///< looks at key frames alone
    bool areSnapshotsWanted = true; ///< false: clips come without; decoding them again can cost
    int threads = 0; ///< that decode; 0 = as many as the machine has cores, 1 = the caller's alone
};

/// What the headers of an open file say of its stream.
StreamFacts streamFacts(const VideoDecoder& decoder);

/// Whether the region selects no pixel of a picture of this size, which may have none.
bool selectsNothing(const RegionOfInterest& region, int width, int height);

/// The road of one recording: open, decode, measure, segment.
class Detection {
public:
    Detection(const DetectionOptions& options, DetectionClient& client);

    /// Reads the whole file. Runs once per object.
    DetectionOutcome run(const QString& fileName);

    /// The same with a file that is open and has been skipped to the range; its pictures are
    /// counted from `origin`. Nothing, before the client is told anything, if it is in doubt that
    /// what comes is what is read from the start on.
    std::optional<DetectionOutcome> runSkipped(VideoDecoder& decoder,
                                               const RecordingOrigin& origin);

    /// Why the file could not be read, for a person; empty unless the outcome is a failure.
    QString errorText() const;

    /// After a failure: whether the same bytes would fail anywhere and at any time. False where the
    /// disk, the memory or what is installed may be to blame.
    bool isLasting() const { return isLastingFailure; }

    /// What was measured; once the run has ended.
    const Measurement& measurement() const { return measured; }
    const MotionSeries& motionSeries() const { return measured.series; }

private:
    bool mayBeCut() const;
    PictureKeeperMaker keeperMaker() const;
    ClipPicturePointer handleOf(const TimedPicture& picture);
    std::optional<RecordingOrigin> skipAhead(VideoDecoder& decoder);
    DetectionOutcome runFile();
    DetectionOutcome runOpen(VideoDecoder& decoder);
    std::optional<DetectionOutcome> runOpened(VideoDecoder& decoder,
                                              std::optional<RecordingOrigin> origin);
    void begin(const TimedPicture& first, const RangedPictures& range, double frameRate);
    void failToOpen(const VideoDecoder& decoder);
    DetectionOutcome failToBegin(const PictureSource& pictures, bool hasPicture);
    DetectionOutcome outcomeOf(const PictureSource& pictures);
    void findDamage(const VideoDecoder& decoder);
    DetectionOutcome failWithoutMemory();
    DetectionOutcome failWithoutTimes();

    DetectionOptions options;
    DetectionClient& client;
    QByteArray path; ///< of the recording, in the file system's bytes
    Measurement measured;
    ChunkSnapshots chunkSnapshots;
    QString error;
    bool isLastingFailure = false;
};
