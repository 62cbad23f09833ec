// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detection.h"
#include "recordingpart.h"

class PartReading;

/// Measures one part of a recording by itself and decides nothing. What all its parts hold can be
/// joined into what one pass over the recording measures.
///
/// Recordings that cannot be cut, as those without times of their own, are measured whole as their
/// first part.
class PartDetection {
public:
    /// Of `options` range and segmentation do not matter, and key frames alone are not an option.
    /// The client is asked whether to cancel and told the position, nothing else.
    PartDetection(const DetectionOptions& options, RecordingPart part, DetectionClient& client);

    /// Reads what is needed of the file. Runs once per object.
    DetectionOutcome run(const QString& fileName);

    /// Why the file could not be read, for a person; empty unless the outcome is a failure.
    const QString& errorText() const { return error; }

    /// As `Detection::isLasting`.
    bool isLasting() const { return isLastingFailure; }

    /// What was measured: the last picture before the part, which is compared with, and its own.
    const Measurement& measurement() const { return measured; }

    const PartFacts& facts() const { return partFacts; }

private:
    DetectionOutcome runOrFail(const QString& fileName);
    DetectionOutcome measureWhole(const QString& fileName);
    DetectionOutcome measureUncut(const QString& fileName);
    bool goToPart(VideoDecoder& decoder);
    DetectionOutcome measureCut(VideoDecoder& decoder);
    bool isWhole(const VideoDecoder& decoder) const;
    void measurePictures(PictureSource& pictures, qint64 firstNumber);
    DetectionOutcome outcomeOf(const PictureSource& pictures);
    void takeFacts(const PartReading& part, bool isRegular);

    DetectionOptions options;
    RecordingPart part;
    DetectionClient& client;
    QByteArray path; ///< of the recording, in the file system's bytes
    Measurement measured;
    PartFacts partFacts;
    QString error;
    bool isLastingFailure = false;
};
