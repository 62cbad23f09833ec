// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "startinname.h"

#include "knownnames.h"
#include "sensibletime.h"
#include "zonedtime.h"

#include <algorithm>

namespace {

// Other numbers of ten digits are those of devices and telephones.
constexpr int firstEpochYear = 2010;
constexpr int lastEpochYear = 2039;

/// A number that stands for a time only by chance.
bool isOtherNumber(const NamedTime& named) {
    const int year = named.date.year();
    return named.isEpoch && (year < firstEpochYear || year > lastEpochYear);
}

ZonedTime zoned(const NamedTime& named, const QTimeZone& zone) {
    if (!named.offsetFromUtc)
        return shownIn(zone, named.date, named.time);
    const QDateTime time(named.date, named.time, Qt::OffsetFromUTC, *named.offsetFromUtc);
    return {time.toTimeZone(zone), std::nullopt};
}

RecordingStart startOf(const NamedTime& named, const QTimeZone& zone) {
    const QDateTime written(named.date, named.time, Qt::UTC);
    if (const auto flaw = flawOf(written))
        return unknownStart(*flaw);
    const ZonedTime time = zoned(named, zone);
    RecordingStart start{time.time, StartSource::Name, StartCertainty::Sure, {}};
    if (time.doubt)
        start = lessSure(start, *time.doubt);
    return named.hasSeconds ? start : lessSure(start, StartDoubt::NoSeconds);
}

bool isSameTime(const NamedTime& left, const NamedTime& right) {
    return left.date == right.date && left.time == right.time;
}

/// Nothing if the name is not like that.
std::optional<RecordingStart> readAs(const KnownName& known, const QString& path,
                                     const QTimeZone& zone) {
    QVector<NamedTime> found;
    for (const NamePattern& way : known.ways) {
        const auto named = way.find(path);
        if (named && !isOtherNumber(*named) && (found.isEmpty() || !isSameTime(found[0], *named)))
            found += *named;
    }
    if (found.isEmpty())
        return std::nullopt;
    if (found.size() > 1 || known.reading == NameReading::Unusable)
        return unknownStart(StartDoubt::AmbiguousDay);
    if (known.reading == NameReading::Utc)
        found[0].offsetFromUtc = 0;
    RecordingStart start = startOf(found[0], zone);
    if (start.isKnown() && found[0].isEpoch)
        start = lessSure(start, StartDoubt::EpochSupposed);
    return start;
}

/// Of a name that has a day and no time that could be read; without doubts if it has no day.
RecordingStart startOfDayAlone(const QString& path) {
    static const QRegularExpression form(
        QStringLiteral("(?<![0-9])((?:19|20)[0-9]{2})([-_.]?)(0[1-9]|1[0-2])\\2(0[1-9]|[12][0-9]|"
                       "3[01])(?![0-9])[^/]*$"));
    const auto day = form.match(path.mid(path.lastIndexOf('/') + 1));
    if (!day.hasMatch())
        return {};
    const bool isDay =
        QDate::isValid(day.captured(1).toInt(), day.captured(3).toInt(), day.captured(4).toInt());
    return unknownStart(isDay ? StartDoubt::DayWithoutTime : StartDoubt::UnlikelyTime);
}

/// A day with its century has eight digits.
bool hasRoomForATime(const QString& path) {
    return std::count_if(path.cbegin(), path.cend(), [](QChar sign) { return sign.isDigit(); }) >=
           8;
}

RecordingStart startInKnownName(const QString& path, const QTimeZone& zone) {
    if (!hasRoomForATime(path))
        return {};
    for (const KnownName& known : knownNames()) {
        const auto start = readAs(known, path, zone);
        if (start)
            return *start;
    }
    return startOfDayAlone(path);
}

} // namespace

RecordingStart startInName(const QString& path, const QTimeZone& zone, const NamePattern* pattern) {
    if (!pattern)
        return startInKnownName(path, zone);
    const auto named = pattern->find(path);
    return named ? startOf(*named, zone) : unknownStart(StartDoubt::PatternUnfit);
}
