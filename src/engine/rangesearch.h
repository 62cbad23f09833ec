// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detection.h"

#include <QVector>

/// Detections of several ranges of one recording, which is read once as far as that goes. Each is
/// what a detection of that range alone is; clips and pictures are counted anew in each.
class RangeSearch {
public:
    /// Of `options` the range does not matter. All must outlive this object.
    RangeSearch(const DetectionOptions& options, DetectionProgress& progress,
                DetectionFindings& findings);

    /// The ranges must not overlap and come in their order. Ends with the first one that fails;
    /// those without pictures do not. Runs once per object.
    MeasuringEnd run(const QString& fileName, const QVector<TimeRange>& ranges);

private:
    DetectionOptions options;
    DetectionProgress& progress;
    DetectionFindings& findings;
};
