// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "motionscore.h"

#include <QVector>

/// What was measured of one recording: one entry in each list per picture after the first.
struct MotionSeries {
    QVector<MotionScore> scores;
    QVector<double> times; ///< seconds, as the stream counts them
};
