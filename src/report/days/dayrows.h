// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cameras.h"

#include <QDateTime>

#include <vector>

/// A stretch of a recording on an axis. Times in seconds.
struct RowSpan {
    const ReportedRecording* recording;
    double from; ///< in the recording
    double to;
    double at; ///< on the axis
};

/// A stretch of the clock, with what was recorded then; between the spans nothing was.
struct DayRow {
    QDateTime begin;
    double seconds = 0.0;
    bool isOver = false; ///< goes on below the row before it: what was recorded at the same time
    std::vector<RowSpan> spans; ///< by their times; they have nothing in common
};

/// The axes of a camera: one if all was recorded within a day, else one for each day on which
/// something was, all for the same hours (dayHours).
std::vector<DayRow> dayRows(const Camera& camera);
