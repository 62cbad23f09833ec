// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "motionreport.h"

#include <QByteArray>

#include <vector>

/// A clip, and what it was found in. Both lie in the report.
struct ShownClip {
    const ReportedRecording* recording;
    const ReportedClip* clip;
};

/// The clips as figures, in groups of `clipsInGroup`: a browser leaves out those groups that are
/// out of sight.
QByteArray clipFigures(const std::vector<ShownClip>& clips, const MotionReport& report);

/// Fills the last row, whether there are 1, 2, 3, 4, 5 or 6 clips in one.
constexpr int clipsInGroup = 60;

/// The reference to the picture of a clip that has one.
QByteArray pictureReference(const ReportedClip& clip, const MotionReport& report);
