// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "dayrows.h"
#include "reportstrips.h"

#include <QByteArray>

/// A row as SVG: where something was recorded, its motion, the threshold, the clips and round
/// times.
QByteArray dayDrawing(const DayRow& row, const MotionReport& report, const ReportStrips& strips);
