// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chunksnapshot.h"
#include "detectionfindings.h"
#include "detectionoptions.h"
#include "measuring.h"
#include "picturekeeper.h"

/// The road of one recording: open, decode, measure, segment.
class Detection {
public:
    /// Without findings everything is measured, and nothing decided. Both must outlive this object.
    Detection(const DetectionOptions& options, DetectionProgress& progress,
              DetectionFindings* findings = nullptr);

    /// Reads the whole file. Runs once per object.
    MeasuringEnd run(const QString& fileName);

    /// The same with a file that is open and has been skipped to the range; its pictures are
    /// counted from `origin`. Nothing, before anybody is told anything, if it is in doubt that
    /// what comes is what is read from the start on.
    std::optional<MeasuringEnd> runSkipped(VideoDecoder& decoder, const RecordingOrigin& origin);

    /// What was measured; once the run has ended.
    const Measurement& measurement() const { return measured; }

private:
    bool mayBeCut() const;
    PictureKeeperMaker keeperMaker() const;
    ClipPicturePointer handleOf(const Frame& picture);
    std::optional<RecordingOrigin> skipAhead(VideoDecoder& decoder);
    MeasuringEnd runFile();
    MeasuringEnd runOpen(VideoDecoder& decoder);
    std::optional<MeasuringEnd> runOpened(VideoDecoder& decoder,
                                          std::optional<RecordingOrigin> origin);
    void begin(const PicturePair& first, const RangedPictures& pictures);
    MeasuringEnd failToBegin(const PictureSource& source, bool hasPicture);
    MeasuringEnd measureAndDecide(PicturePair first, RangedPictures& pictures);
    void findDamage(const VideoDecoder& decoder);

    DetectionOptions options;
    DetectionProgress& progress;
    DetectionFindings* findings;
    QByteArray path; ///< of the recording, in the file system's bytes
    Measurement measured;
    ChunkSnapshots chunkSnapshots;
};
