// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionoptions.h"
#include "measurement.h"
#include "motionpyramid.h"
#include "searchoptions.h"

#include <QString>

#include <memory>
#include <optional>

class Video;

/// What clips of this job are decided with: as it was told, else as setup and settings say.
DecidingOptions decidingOptionsOf(const Video& video);

/// What was measured of the recording of a job that is over, for deciding on it again and again.
///
/// Made on the GUI thread; from then on any one thread at a time may use it. What is kept of the
/// recording is read when it is first needed.
class RecordingMotion {
public:
    explicit RecordingMotion(const Video& video);

    /// The values of a detector's pictures; null where they were not measured or not kept.
    const Measurement* valuesOf(const DecidingOptions& options);

    /// The same over time, as seconds from the first picture.
    std::shared_ptr<const MotionPyramid> pyramidOf(const DecidingOptions& options);

    /// The clips that these options find, joined where that is asked for; nothing where there are
    /// no values of that detector.
    std::optional<QVector<DetectedClip>> clips(const DecidingOptions& options);

    /// The mean's values; null where they were not measured or not kept.
    const Measurement* means();

    /// What the recording was measured with.
    const DetectionOptions& measuredWith() const { return measured; }

private:
    /// What is kept for a search with this detector.
    struct Kept {
        bool isRead = false;
        std::optional<Measurement> measured;
    };

    const Measurement* keptFor(Detector detector, Kept& kept);
    const Measurement* maps();
    const Measurement* cells(const CellOptions& options);

    /// The values of the cells for one choice of them.
    struct OfCells {
        CellOptions options;
        Measurement values;
    };

    struct Drawn {
        const Measurement* values = nullptr; ///< that it was made of
        std::shared_ptr<const MotionPyramid> pyramid;
    };

    QString fileName;
    DetectionOptions measured;
    Measurement ofJob; ///< the mean's values as the job has them; it may have none
    Kept ofMean;
    Kept ofMaps; ///< where the mean was measured otherwise
    std::optional<OfCells> ofCells;
    Drawn drawn;
};
