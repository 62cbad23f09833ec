// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "motionreport.h"

#include <QHash>

/// Seconds from a recording's first picture.
struct ClipStretch {
    double start;
    double end;
};

/// What the strips of a report have in common. The report must outlive it.
class ReportStrips {
public:
    explicit ReportStrips(const MotionReport& report);

    /// The greatest motion value that strips have room for (stripTop).
    double top() const { return greatest; }

    /// Where clips lie in a recording of the report, also those that began in another one.
    QVector<ClipStretch> clipsIn(const ReportedRecording& recording) const;

private:
    void add(const ReportedRecording& recording, const ReportedClip& clip,
             const MotionReport& report);

    double greatest;
    QHash<const ReportedRecording*, QVector<ClipStretch>> clips;
};

/// The greatest motion value that strips have room for, the same in all of a report so that they
/// can be compared: that of the strongest motion, but at least twice the threshold and at most the
/// largest threshold that there is. Greater values end at the edge.
double stripTop(const MotionReport& report);
