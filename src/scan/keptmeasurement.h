// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detection.h"
#include "keptvalues.h"

/// A detection's result as the values that are kept of it, and back.

KeptValues keptValues(const RecordingStamp& recording, const MeasureSettings& settings,
                      const Detection& detection, DetectionOutcome outcome);

Measurement measurementOf(const KeptValues& values);

DetectionOutcome outcomeOf(KeptEnd end);

/// Whether the outcome is the recording's own doing, so that measuring it anew gives it again.
bool canBeKept(const Detection& detection, DetectionOutcome outcome);
