// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipmerger.h"
#include "detectionfindings.h"
#include "detectionprogress.h"
#include "factsteller.h"

#include <QElapsedTimer>

#include <optional>

class Video;

/// Keeps a job's fields, its signals and its news in step with its search. Who listens cannot tell
/// whether it is measured at the moment or was before.
class JobClient : public DetectionProgress, public DetectionFindings {
public:
    /// `job` must outlive it.
    explicit JobClient(Video& job);

    /// The file that is searched; before all else.
    void setFile(const SearchedFile& file) { teller.setFile(file); }

    /// From now on the file's end is none: nothing is decided before it.
    void measureFirst() { isEndHeld = true; }

    /// From now on so many pictures are decided on that were measured before; with the last one the
    /// job is finished, and read up to `bytePosition`.
    void decideOn(int pictures, qint64 bytePosition);

    /// Nothing more comes that a clip could be joined with.
    void endClips();

    void end(const MeasuringEnd& end, const Damage& damage) { teller.end(end, damage); }

    /// So many pictures behind the first one were decided on.
    int decided() const { return pictures; }
    double decidedSeconds() const { return teller.seconds(); }

    bool isCancelled() override;
    void positionChanged(qint64 bytePosition, bool isAtEnd) override;
    void opened(const StreamFacts& stream) override;
    void frameProcessed(const FrameReport& frame) override;
    void clipFound(const DetectedClip& clip) override;

private:
    void announce(const std::optional<DetectedClip>& clip);
    void finish(qint64 bytePosition);

    Video& job;
    int firstIndex; ///< the number of its first clip
    FactsTeller teller;
    std::optional<ClipMerger> merger; ///< where clips are joined
    QElapsedTimer timer;
    int pictures = 0;
    bool isEndHeld = false;
    int awaited = -1; ///< pictures, of which the last one ends the job; -1: the file's end does
    qint64 awaitedPosition = 0;
};
