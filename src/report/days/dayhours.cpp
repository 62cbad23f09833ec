// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dayhours.h"

#include <QTimeZone>

namespace {

constexpr int longRest = 6; ///< hours without recordings by which nights are told from days
constexpr qint64 hourSeconds = 3600;

/// Where `like` is; midnight does not come everywhere on every day.
QDateTime startOfDay(QDate date, const QDateTime& like) {
    switch (like.timeSpec()) {
    case Qt::TimeZone:
        return date.startOfDay(like.timeZone());
    case Qt::OffsetFromUTC:
        return date.startOfDay(Qt::OffsetFromUTC, like.offsetFromUtc());
    default:
        return date.startOfDay(like.timeSpec());
    }
}

/// How many hours from `hour` on, over midnight, nothing was recorded in.
int restFrom(int hour, const std::array<bool, hoursOfDay>& isRecorded) {
    int rest = 0;
    while (rest < hoursOfDay && !isRecorded[std::size_t((hour + rest) % hoursOfDay)])
        ++rest;
    return rest;
}

} // namespace

std::array<bool, hoursOfDay> recordedHours(const Camera& camera) {
    std::array<bool, hoursOfDay> isRecorded{};
    for (const ReportedRecording* recording : camera.recordings) {
        const QDateTime end = endOf(*recording);
        QDateTime time = recording->start.time;
        for (int i = 0; i < hoursOfDay && time < end; ++i) {
            isRecorded[std::size_t(time.time().hour())] = true;
            const int past = time.time().msecsSinceStartOfDay() % int(hourSeconds * 1000);
            time = time.addMSecs(hourSeconds * 1000 - past);
        }
    }
    return isRecorded;
}

QDateTime DayHours::dayOf(const QDateTime& time) const {
    const QDateTime wall(time.date(), time.time(), Qt::UTC);
    const QDate date = wall.addSecs(-first * hourSeconds).date();
    const auto begin = [&](int days) {
        return startOfDay(date.addDays(days), time).addSecs(first * hourSeconds);
    };
    if (time < begin(0)) // clocks were put forward on that day, or back
        return begin(-1);
    return time < begin(1) ? begin(0) : begin(1);
}

QDateTime DayHours::dayAfter(const QDateTime& day) const {
    return dayOf(day.addSecs(36 * hourSeconds)); // whether days are shorter or longer by some
}

DayHours dayHours(const Camera& camera) {
    const auto isRecorded = recordedHours(camera);
    int begin = 0;
    int longest = 0;
    for (int hour = 0; hour < hoursOfDay; ++hour) {
        const int rest = restFrom(hour, isRecorded);
        if (rest > longest) {
            begin = hour;
            longest = rest;
        }
    }
    const bool isOverMidnight = begin + longest < hoursOfDay && begin > 0;
    if (longest == 0 || (isOverMidnight && longest < longRest))
        return {};
    return {(begin + longest) % hoursOfDay, hoursOfDay - longest};
}
