// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QVector>

/// A recording's motion over time, coarse enough to be drawn: the greatest value of each column of
/// equal length.
///
/// There are never more than `mostColumns`, however long the recording is, and at least half as
/// many once it is longer than that many of the shortest ones: neighbours are joined when a picture
/// lies behind the last column.
class MotionStrip {
public:
    static constexpr int mostColumns = 2048;
    static constexpr double shortestColumn = 1.0 / 64.0; ///< seconds

    /// A value measured between two pictures, at `time`, that of the newer one, in seconds from the
    /// first picture. Times before the first picture count as its time; those that are no number
    /// are left out.
    void add(double time, float value);

    /// What lies between the newest picture and `time`, in the same seconds, was not looked at.
    void leaveOut(double time);

    /// The greatest value of each column, from the first picture to the newest; column i holds the
    /// times from i * columnSeconds() on. A column into which no picture falls has the value
    /// measured across it, that of the next column with a picture; one of which nothing was looked
    /// at is negative.
    QVector<float> columns() const;

    double columnSeconds() const { return seconds; }

    float greatest() const; ///< the greatest value of all; 0 without any

private:
    void growTo(double time, float value);
    void joinNeighbours();

    double seconds = shortestColumn;
    QVector<float> maxima; ///< negative where there is no picture, or nothing was looked at
};
