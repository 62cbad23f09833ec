// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QtGlobal>

/// How seconds become non-drop timecodes, HH:MM:SS:FF.
///
/// Timecodes count frames, a whole number of them to the second. A rate that is a whole number, or
/// 1000/1001 of one as 29.97 is, counts pictures. Of other rates the smallest multiple that is such
/// a one counts (12.5: 25), up to the eightfold; where there is none, the nearest whole number.
/// Rates above 99, for which two digits are too few, are halved until they fit; those below 1 that
/// nothing makes whole count as 1.
class Timecode {
public:
    /// `frameRate`: pictures per second, more than 0.
    explicit Timecode(double frameRate);

    /// The frame nearest to a time in seconds.
    qint64 frameAt(double seconds) const;

    /// The timecode of a frame, 0 or more. Behind 99 hours it has more digits.
    QByteArray text(qint64 frame) const;

private:
    double rate;           ///< frames per second: 30000.0 / 1001 for 29.97
    int framesToTheSecond; ///< of a timecode: 30 for 29.97
};
