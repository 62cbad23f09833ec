// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "timecode.h"

#include "clocktext.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int mostFrames = 99; ///< that two digits number, and one of them is 0
constexpr int mostFold = 8;

/// Headers round rates to a few digits, as in 29.97.
bool isNearWhole(double value) {
    return std::abs(value - std::round(value)) < 0.001 * value / 30.0;
}

bool canBeCounted(double rate) {
    return rate > 0.5 && (isNearWhole(rate) || isNearWhole(rate * 1.001));
}

double countableRate(double rate) {
    while (rate > mostFrames)
        rate /= 2.0;
    for (int fold = 1; fold <= mostFold && fold * rate <= mostFrames; ++fold) {
        if (canBeCounted(fold * rate))
            return fold * rate;
    }
    return std::max(1.0, std::round(rate));
}

} // namespace

Timecode::Timecode(double frameRate)
    : rate(countableRate(frameRate))
    , framesToTheSecond(int(std::lround(rate))) {}

qint64 Timecode::frameAt(double seconds) const {
    return std::llround(seconds * rate);
}

QByteArray Timecode::text(qint64 frame) const {
    const QString seconds = clockText(frame / framesToTheSecond).rightJustified(8, '0');
    const QString frames = QString::number(frame % framesToTheSecond).rightJustified(2, '0');
    return (seconds + ':' + frames).toLatin1();
}
