// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "partdetection.h"
#include "scouting.h"

#include <QString>

#include <functional>
#include <memory>

/// Measures parts on the calling thread, and keeps the recording open that was measured last.
class PartReader {
public:
    PartReader(const DetectionOptions& options, std::function<bool()> isCancelled);
    ~PartReader();

    /// Measures part `part` of the recording that was scouted, decoding with so many threads. Null
    /// where it cannot be reached.
    std::unique_ptr<PartDetection> measure(const QString& path, const ScoutedRecording& scouted,
                                           RecordingPart part, int threads);

    /// How the last one has ended.
    const MeasuringEnd& end() const { return lastEnd; }

private:
    class Progress;

    DetectionOptions options;
    std::unique_ptr<Progress> progress;
    QString opened; ///< the path of what is open
    std::optional<FrameStream> frames;
    MeasuringEnd lastEnd;
};
