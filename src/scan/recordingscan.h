// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipmerger.h"
#include "clipoutput.h"
#include "picturefinder.h"
#include "scanoptions.h"
#include "scanoutputs.h"
#include "watchedrecording.h"

#include <memory>

/// One recording of a call: follows its detection and reports it.
class RecordingScan : public DetectionProgress, public DetectionFindings {
public:
    /// `index` is the recording's place in `options.videos`. All must outlive the scan.
    RecordingScan(int index, const ScanOptions& options, ScanOutputs& outputs);

    /// AllDone if the recording was read to its end and everything found was written,
    /// SomeUnreadable if its own bytes kept it from being read, else SomeFailed.
    ExitStatus run();

    bool isCancelled() override;
    void positionChanged(qint64 bytePosition, bool isAtEnd) override;
    void opened(const StreamFacts& stream) override;
    void frameProcessed(const FrameReport& frame) override;
    void clipFound(const DetectedClip& clip) override;

private:
    QString search();
    QString searchOrFail();
    void finish(const QString& error);
    void complainOfRefusal();
    void pass(const std::optional<DetectedClip>& clip);
    QString measure(const ValuesStore::Found& found);
    QString lookQuickly(const ValuesStore::Found& found);
    QString decide(const KeptValues& values);
    QString refine(const SegmentationOptions& segmentation);
    void watch(const ValuesStore::Found& found);
    bool isUnchanged();
    void judgeChange(QString& error);
    void passLooked(double time);
    void numberPictures(double frameRate);
    SegmentationOptions segmentationOf(const KeptValues& values) const;
    void makeFinder(const KeptValues& values);
    ClipPicturePointer clipPicture(int picture);
    bool areSnapshotsWanted() const;

    int index;
    const ScanOptions& options;
    ScanOutputs& outputs;
    ClipOutput clips;
    std::optional<ClipMerger> merger; ///< where clips are merged
    VideoLine line;
    int foundClips = 0;        ///< before any are merged, in all stretches that are searched
    int nextLooked = -1;       ///< where it is refined: the next value of its key frames
    bool hasBegunAgain = true; ///< the next picture is the first that is compared
    PlayedRecording played;
    Measurement measurement;                 ///< what is decided on, where it is kept
    std::unique_ptr<PictureFinder> finder;   ///< null: the recording is decoded
    std::optional<WatchedRecording> watched; ///< nothing: it is no regular file
    bool isSearched = false; ///< the recording is read in this call, not only for its clips
    bool isWritten = true;
    bool isRecordingToBlame = false; ///< where it could not be read
};
