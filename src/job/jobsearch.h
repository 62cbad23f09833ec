// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detection.h"
#include "jobclient.h"

/// One search of a job's recording, on the thread that runs it. Both measures are taken in one
/// pass, whichever decides.
class JobSearch {
public:
    /// `job` must outlive it.
    explicit JobSearch(Video& job);

    /// All of it, but for the last signal: announces the clips, tells the news, and leaves the job
    /// in its end state with its values.
    void run();

private:
    MeasuringEnd search();
    MeasuringEnd measure();
    MeasuringEnd measureFirst();
    MeasuringEnd decide(const MeasuringEnd& end, qint64 bytePosition);
    void decideOnMeasured();
    bool isMeasuredFirst() const;
    bool areCellsAsked() const { return options.detector == Detector::Cells; }
    void takeValues();

    Video& job;
    DetectionOptions options;
    JobClient client;
    Measurement measured;
};
