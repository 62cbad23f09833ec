// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeaxis.h"

#include "clocktext.h"

#include <array>
#include <cmath>

namespace {

constexpr int mostSteps = 8;
constexpr double longest = 1e12; ///< seconds that no recording has
constexpr qint64 day = 86400;
constexpr std::array<qint64, 19> roundSteps = {1,     2,     5,     10,  15,     30,   60,
                                               120,   300,   600,   900, 1800,   3600, 7200,
                                               10800, 21600, 43200, day, 7 * day};

/// The shortest round step that fits the length at most `mostSteps` times.
qint64 stepFor(double seconds) {
    for (const qint64 step : roundSteps) {
        if (seconds / double(step) <= mostSteps)
            return step;
    }
    return qint64(std::ceil(seconds / mostSteps / double(day))) * day;
}

QString clockLabel(const QDateTime& time, qint64 step) {
    if (time.time() == QTime(0, 0))
        return time.toString(QStringLiteral("yyyy-MM-dd"));
    return time.toString(step < 60 ? QStringLiteral("HH:mm:ss") : QStringLiteral("HH:mm"));
}

/// Seconds from the first picture to the first round time that lies not before `from`.
double firstMark(double from, const QDateTime& startTime, qint64 step) {
    const qint64 round = step * 1000;
    const auto begin = qint64(std::ceil(from * 1000.0));
    const qint64 clock = startTime.isValid() ? startTime.toMSecsSinceEpoch() +
                                                   qint64(startTime.offsetFromUtc()) * 1000
                                             : 0;
    const qint64 at = clock + begin;
    const qint64 past = (at % round + round) % round;
    return double(begin + (past == 0 ? 0 : round - past)) / 1000.0;
}

} // namespace

QVector<TimeMark> timeMarks(double seconds, const QDateTime& startTime) {
    return timeMarks(0.0, seconds, startTime);
}

QVector<TimeMark> timeMarks(double from, double to, const QDateTime& startTime) {
    QVector<TimeMark> marks;
    if (!(from >= 0.0 && to > from && to < longest))
        return marks;
    const qint64 step = stepFor(to - from);
    const double first = firstMark(from, startTime, step);
    for (int i = 0; first + double(i * step) <= to; ++i) {
        const double at = first + double(i * step);
        const QDateTime time = startTime.addMSecs(std::llround(at * 1000.0));
        marks.append({at, startTime.isValid() ? clockLabel(time, step) : elapsedText(at)});
    }
    return marks;
}
