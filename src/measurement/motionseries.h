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

/// How many pictures from `number` on have the score before them, where `skip` of them lie between
/// two measurements. The recording's first picture, 0, counts as measured.
constexpr qint64 skippedFrom(qint64 number, int skip) {
    return skip - (number + skip) % (skip + 1);
}
