// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reportstrips.h"

#include <QByteArray>

/// The strip of one recording as SVG: motion over time, the threshold, the clips and round times.
QByteArray stripDrawing(const ReportedRecording& recording, const MotionReport& report,
                        const ReportStrips& strips);
