// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionprogress.h"
#include "scanoutputs.h"

/// Shows how far the scan is while something of a recording is read, and ends that with the scan.
class ScanProgress : public DetectionProgress {
public:
    /// All must outlive this object.
    ScanProgress(Recording& recording, ScanOutputs& outputs)
        : recording(recording)
        , outputs(outputs) {}

    /// What is read from now on of the recording, which lasts so many seconds, is taken from the
    /// budget.
    void spend(double secondsOfAll) { seconds = secondsOfAll; }

    bool isCancelled() override;
    void positionChanged(qint64 bytePosition, bool isAtEnd) override;

private:
    Recording& recording;
    ScanOutputs& outputs;
    double seconds = 0.0;
    qint64 farthest = 0; ///< bytes that the budget knows of
};
