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

    /// The same with a file that is read as `options` say, but in another range.
    MeasuringEnd run(FrameStream& frames);

    /// How a recording is read for it.
    FramePlan plan() const;

    /// What was measured; once the run has ended.
    const Measurement& measurement() const { return measured; }

private:
    bool areMapsWanted() const;
    PictureKeeperMaker keeperMaker() const;
    ClipPicturePointer handleOf(const Frame& frame);
    MeasuringEnd runOn(FrameStream& frames);
    void begin(const FramePair& first, const FrameStream& frames);
    MeasuringEnd failToBegin(const FrameStream& frames, bool hasPicture);
    MeasuringEnd measureAndDecide(FramePair first, FrameStream& frames);
    MeasuringEnd decide(FramePair first, FrameStream& frames, Measures measures);
    void findDamage(const FrameStream& frames);

    DetectionOptions options;
    DetectionProgress& progress;
    DetectionFindings* findings;
    Measurement measured;
    ChunkSnapshots chunkSnapshots;
};
