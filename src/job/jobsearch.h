// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detection.h"
#include "jobclient.h"
#include "keptvalues.h"
#include "watchedrecording.h"

/// One search of a job's recording, on the thread that runs it: decides on what was kept of it, or
/// measures it. Both measures are taken in one pass, whichever decides.
class JobSearch {
public:
    /// `job` must outlive it.
    explicit JobSearch(Video& job);

    /// All of it, but for the last signal: announces the clips, tells the news, and leaves the job
    /// in its end state with its values.
    void run();

private:
    MeasuringEnd search();
    MeasuringEnd decideOnKept(KeptValues values);
    MeasuringEnd measure();
    MeasuringEnd runAndKeep(Detection& detection);
    void judgeChange(MeasuringEnd& end);
    MeasuringEnd decide(const MeasuringEnd& end, qint64 bytePosition);
    void decideOnMeasured();
    bool isMeasuredFirst() const;
    bool areCellsAsked() const { return options.detector == Detector::Cells; }
    void takeValues();

    Video& job;
    DetectionOptions options;
    JobClient client;
    Measurement measured;
    std::optional<DetectionOptions> measuredAs; ///< nothing: it cannot be told
    std::optional<RecordingStamp> stamp;        ///< of the recording as it was when that began
    std::optional<WatchedRecording> watched;
};
