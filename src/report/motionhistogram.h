// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detector.h"

#include <QVector>

/// The thresholds that a person may choose from, ascending: 0 to 10, or to 100 where cells decide,
/// the range of the option, in steps that grow with the threshold.
const QVector<double>& thresholdSteps(Detector detector = Detector::Mean);

/// How much of a recording's time lies at or above each of thresholdSteps(). Takes the same memory
/// for every length.
class MotionHistogram {
public:
    explicit MotionHistogram(Detector detector = Detector::Mean)
        : detector(detector) {}

    /// A value measured between two pictures, at `time`, that of the newer one, in seconds from the
    /// first picture. It counts for the time since the last one; none where times run backwards.
    void add(double time, float value);

    /// What lies before `time` was not looked at and counts for no value.
    void leaveOut(double time) { last = time > last ? time : last; }

    /// Adds the times of another recording.
    void add(const MotionHistogram& other);

    /// Seconds for each of thresholdSteps() with values from this one to below the next; values
    /// above the last step count there. Empty if nothing was added.
    const QVector<double>& seconds() const { return bins; }

private:
    Detector detector;
    double last = 0.0; ///< the newest time so far
    QVector<double> bins;
};
