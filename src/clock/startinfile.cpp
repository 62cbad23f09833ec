// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "startinfile.h"

#include "sensibletime.h"
#include "zonedtime.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace {

constexpr double longestRecording = 315360000.0; ///< seconds: ten years, for which nobody records

QDateTime withOffset(const QDate& date, const QTime& time, const QString& offset) {
    if (offset.startsWith('Z', Qt::CaseInsensitive))
        return {date, time, Qt::UTC};
    const int seconds = offset.mid(1, 2).toInt() * 3600 + offset.right(2).toInt() * 60;
    return {date, time, Qt::OffsetFromUTC, offset[0] == '-' ? -seconds : seconds};
}

/// Unknown without doubts if `text` is no time.
RecordingStart startInText(const QString& text, const QTimeZone& zone) {
    static const QRegularExpression form(
        QStringLiteral("^\\s*([0-9]{4}-[0-9]{2}-[0-9]{2})[T ]([0-9]{2}:[0-9]{2}:[0-9]{2})"
                       "(?:\\.([0-9]{1,3})[0-9]{0,6})?\\s*([Zz]|[+-](?:0[0-9]|1[0-4]):?[0-5][0-9])?"
                       "\\s*$"));
    const auto match = form.match(text.left(64));
    const QDate date = QDate::fromString(match.captured(1), Qt::ISODate);
    const QTime time = QTime::fromString(match.captured(2), Qt::ISODate)
                           .addMSecs(match.captured(3).leftJustified(3, '0').toInt());
    if (!match.hasMatch() || !date.isValid() || !time.isValid())
        return {};
    const QString offset = match.captured(4);
    RecordingStart start{{}, StartSource::Container, StartCertainty::Likely, {}};
    if (const auto flaw = flawOf(QDateTime(date, time, Qt::UTC)))
        return unknownStart(*flaw);
    if (!offset.isEmpty()) {
        start.time = withOffset(date, time, offset).toTimeZone(zone);
        if (offset.size() == 1)
            start.doubts += StartDoubt::ZoneSupposed;
        else
            start.certainty = StartCertainty::Sure;
        return start;
    }
    const ZonedTime shown = shownIn(zone, date, time);
    start.time = shown.time;
    if (shown.doubt)
        start.doubts += *shown.doubt;
    return start;
}

/// Of a year, a month or a day nobody expects that it tells when a recording began.
bool isDayAlone(const QString& text) {
    static const QRegularExpression form(QStringLiteral("^[0-9]{4}(?:-[0-9]{2}){0,2}$"));
    return form.match(text.left(64)).hasMatch();
}

} // namespace

RecordingStart startInHead(const FileHead& head, const QTimeZone& zone) {
    QStringList texts = head.times;
    texts.erase(std::remove_if(texts.begin(), texts.end(), isDayAlone), texts.end());
    for (const QString& text : texts) {
        RecordingStart start = startInText(text, zone);
        if (start.isKnown() || !start.doubts.isEmpty())
            return start;
    }
    return texts.isEmpty() ? RecordingStart() : unknownStart(StartDoubt::UnlikelyTime);
}

RecordingStart startByFile(const QDateTime& modified, const FileHead& head, const QTimeZone& zone) {
    if (!modified.isValid())
        return {};
    if (const auto flaw = flawOf(modified.toUTC()))
        return unknownStart(*flaw);
    if (!(head.seconds > 0.0 && head.seconds < longestRecording))
        return unknownStart(StartDoubt::LengthUnknown);
    const QDateTime began =
        modified.toTimeZone(zone).addMSecs(-std::llround(head.seconds * 1000.0));
    return {began, StartSource::FileTime, StartCertainty::Rough, {}};
}
