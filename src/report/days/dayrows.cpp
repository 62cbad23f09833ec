// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dayrows.h"

#include "dayhours.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

constexpr double day = 86400.0;
constexpr double hour = 3600.0;
constexpr double tolerance = 2.0; ///< seconds by which clocks let recordings overlap

double secondsBetween(const QDateTime& from, const QDateTime& to) {
    return double(from.msecsTo(to)) / 1000.0;
}

using Days = std::map<QDateTime, std::vector<RowSpan>>;

/// The recording in stretches of its days; their places are counted from the day's begin.
void addDays(const ReportedRecording& recording, DayHours hours, Days& days) {
    const QDateTime end = endOf(recording);
    QDateTime from = recording.start.time;
    while (from < end) {
        const QDateTime begin = hours.dayOf(from);
        const QDateTime to = std::min(end, hours.dayAfter(begin));
        days[begin].push_back({&recording, secondsBetween(recording.start.time, from),
                               secondsBetween(recording.start.time, to),
                               secondsBetween(begin, from)});
        from = to;
    }
}

double endOf(const RowSpan& span) {
    return span.at + span.to - span.from;
}

/// Spans that overlap go into rows of their own.
void addRows(const DayRow& row, const std::vector<RowSpan>& spans, std::vector<DayRow>& rows) {
    const std::size_t first = rows.size();
    for (const RowSpan& span : spans) {
        const auto free =
            std::find_if(rows.begin() + std::ptrdiff_t(first), rows.end(), [&](const DayRow& one) {
                return endOf(one.spans.back()) <= span.at + tolerance;
            });
        if (free != rows.end()) {
            free->spans.push_back(span);
            continue;
        }
        DayRow next = row;
        next.isOver = rows.size() > first;
        next.spans = {span};
        rows.push_back(next);
    }
}

std::vector<DayRow> oneAxis(const Camera& camera, const QDateTime& begin, double seconds) {
    std::vector<RowSpan> spans;
    for (const ReportedRecording* recording : camera.recordings)
        spans.push_back(
            {recording, 0.0, recording->seconds, secondsBetween(begin, recording->start.time)});
    DayRow row;
    row.begin = begin;
    row.seconds = seconds;
    std::vector<DayRow> rows;
    addRows(row, spans, rows);
    return rows;
}

std::vector<DayRow> axisOfEachDay(const Camera& camera, DayHours hours) {
    Days days;
    for (const ReportedRecording* recording : camera.recordings)
        addDays(*recording, hours, days);
    double last = hours.count * hour;
    for (const auto& one : days) {
        for (const RowSpan& span : one.second)
            last = std::max(last, std::ceil(endOf(span) / hour) * hour);
    }
    std::vector<DayRow> rows;
    for (const auto& one : days) {
        DayRow row;
        row.begin = one.first;
        row.seconds = last;
        addRows(row, one.second, rows);
    }
    return rows;
}

} // namespace

std::vector<DayRow> dayRows(const Camera& camera) {
    const QDateTime begin = camera.recordings.front()->start.time;
    QDateTime end = begin;
    for (const ReportedRecording* recording : camera.recordings)
        end = std::max(end, endOf(*recording));
    const double seconds = secondsBetween(begin, end);
    return seconds <= day ? oneAxis(camera, begin, seconds)
                          : axisOfEachDay(camera, dayHours(camera));
}
