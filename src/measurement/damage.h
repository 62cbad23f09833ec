// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "motionseries.h"
#include "readingsigns.h"

/// What is missing of a recording that was read to its end.
struct Damage {
    /// Packets behind its first picture that could not be decoded. The stream's last one does not
    /// count, in which a recording may be cut off.
    qint64 packets = 0;

    // Where noticeably less could be read than the headers promise, else both 0.
    double promised = 0.0; ///< seconds
    double read = 0.0;     ///< seconds, without the holes in it

    bool isThere() const { return packets > 0 || promised > 0.0; }
};

/// Where what was measured begins; seconds, as the stream counts them.
struct MeasuredSpan {
    double origin = 0.0; ///< of the recording's first picture
    double begin = 0.0;  ///< of the first picture measured, before which nothing is missed
};

/// `series`: of the pictures behind the span's first one, to the end. A recording is noticeably
/// short by what neither its pictures' own intervals nor a rough header explains. A gap between
/// pictures is a hole only where there are other signs of damage: cameras make gaps, too.
Damage damageOf(const MeasuredSpan& span, const MotionSeries& series, const ReadingSigns& signs);
