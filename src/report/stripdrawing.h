// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "motionreport.h"

#include <QByteArray>

/// The greatest motion value that strips have room for, the same in all of a report so that they
/// can be compared: that of the strongest motion, but at least twice the threshold and at most the
/// largest threshold that there is. Greater values end at the edge.
double stripTop(const MotionReport& report);

/// Where a motion value lies in a strip: from 0 at the bottom to 1 at `top`, by its square root.
double stripHeight(double motion, double top);

/// The strip of one recording as SVG: motion over time, the threshold, the clips and round times.
QByteArray stripDrawing(const ReportedRecording& recording, const MotionReport& report, double top);
