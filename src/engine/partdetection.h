// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detection.h"
#include "recordingpart.h"

class PartCells;
class PartReading;

/// Measures one part of a recording by itself and decides nothing. What all its parts hold can be
/// joined into what one pass over the recording measures.
///
/// Recordings that cannot be cut, as those without times of their own, are measured whole as their
/// first part.
class PartDetection {
public:
    /// Of `options` range and segmentation do not matter, and key frames alone are not an option.
    PartDetection(const DetectionOptions& options, RecordingPart part, DetectionProgress& progress);

    /// Reads what is needed of the file. Runs once per object.
    MeasuringEnd run(const QString& fileName);

    /// The same with a stream that has gone to a part (FrameStream::goToPart).
    MeasuringEnd run(FrameStream& frames);

    /// What is wanted before each part.
    static PartLead lead(const DetectionOptions& options);

    /// What was measured: the last picture before the part, which is compared with, and its own.
    const Measurement& measurement() const { return measured; }

    const PartFacts& facts() const { return partFacts; }

private:
    MeasuringEnd runFile(const QString& fileName);
    MeasuringEnd measureWhole(const QString& fileName);
    MeasuringEnd measureUncut(const QString& fileName);
    MeasuringEnd measureCut(FrameStream& frames);
    MeasuringEnd measureOpen(FrameStream& frames);
    bool areMapsSure(const PartCells& cells) const;
    bool isWhole(const FrameStream& frames) const;
    MeasuringEnd measureFrames(FrameStream& frames, qint64 firstNumber, PartCells& cells);
    void takeFacts(const PartReading& part, bool isRegular);

    DetectionOptions options;
    RecordingPart part;
    DetectionProgress& progress;
    Measurement measured;
    PartFacts partFacts;
};
