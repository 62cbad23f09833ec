// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

/// A labelled time of a recording.
struct TimeMark {
    double seconds = 0.0; ///< from the first picture
    QString label;
};

/// Up to nine marks at round times of a recording's `seconds`: full hours where it has some. They
/// count from the first picture or, with a valid `startTime` of this picture, tell the time of the
/// clock, and at midnight the date.
QVector<TimeMark> timeMarks(double seconds, const QDateTime& startTime);

/// The same of a part of it, from `from` to `to` seconds.
QVector<TimeMark> timeMarks(double from, double to, const QDateTime& startTime);
