// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detection.h"
#include "keptvalues.h"
#include "recordingpart.h"

/// A detection's result as the values that are kept of it, and back.

/// How the measuring of a recording has ended; the fields as `Detection` has them.
struct MeasuringEnd {
    DetectionOutcome outcome;
    QString error;
    bool isLasting;
};

KeptValues keptValues(const RecordingStamp& recording, const MeasureSettings& settings,
                      const Measurement& measured, const MeasuringEnd& end);

/// What is kept of one of the parts that a recording is measured in.
KeptPart keptPart(RecordingPart part, const PartFacts& facts);

Measurement measurementOf(const KeptValues& values);

DetectionOutcome outcomeOf(KeptEnd end);

/// Whether the outcome is the recording's own doing, so that measuring it anew gives it again.
bool canBeKept(const Measurement& measured, const MeasuringEnd& end);
