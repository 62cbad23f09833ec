// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clockreading.h"

#include "optionvalues.h"
#include "zonedtime.h"

#include <QCommandLineParser>
#include <QRegularExpression>

namespace {

bool isAuto(const QCommandLineParser& parser) {
    return parser.value("start-time") == QLatin1String("auto");
}

bool isPackage(const QCommandLineParser& parser) {
    return parser.value("format") == QLatin1String("camtrap-dp");
}

/// The time of the clock on the wall, which knows of no zones: no clock is put forward in it, as
/// this machine's may be, and a zone would promise times that nobody reckons.
QDateTime readStartTime(const QString& text, OptionValues& values) {
    static const QRegularExpression zone(QStringLiteral("[T ].*(Z|z|[+-][0-9:]+)$"));
    const auto match = zone.match(text);
    if (match.hasMatch())
        values.reject(
            QStringLiteral("--start-time takes the time of a clock on the wall, which has "
                           "no zone: leave out '%1'")
                .arg(match.captured(1)));
    QDateTime time;
    for (const char* utc : {"Z", "T00:00Z"}) {
        if (!time.isValid())
            time = QDateTime::fromString(text + QLatin1String(utc), Qt::ISODate);
    }
    if (!time.isValid())
        values.reject(QStringLiteral("--start-time takes a time like 2026-11-16T09:05:00, or auto, "
                                     "not '%1'")
                          .arg(text));
    return {time.date(), time.time(), Qt::UTC};
}

/// Nothing where none is given. In a package no time is without one.
std::optional<QTimeZone> readZone(const QCommandLineParser& parser, OptionValues& values) {
    if (!parser.isSet("time-zone"))
        return isPackage(parser) ? std::make_optional(zoneOfMachine()) : std::nullopt;
    auto zone = zoneNamed(parser.value("time-zone"));
    if (!zone)
        values.reject(QStringLiteral("--time-zone takes the name of a zone, such as Europe/Berlin "
                                     "or UTC, and this machine knows none called '%1'")
                          .arg(parser.value("time-zone")));
    return zone;
}

std::optional<NamePattern> readPattern(const QCommandLineParser& parser, OptionValues& values) {
    if (!parser.isSet("start-pattern"))
        return std::nullopt;
    NamePattern pattern(parser.value("start-pattern"));
    if (!pattern.flaw().isEmpty())
        values.reject(QStringLiteral("--start-pattern takes names like %Y%m%d_%H%M%S, not '%1': ")
                          .arg(parser.value("start-pattern")) +
                      pattern.flaw());
    if (!isAuto(parser))
        values.reject(QStringLiteral("--start-pattern needs --start-time auto"));
    return pattern;
}

RecordingStart givenStart(const QDateTime& time, const std::optional<QTimeZone>& zone) {
    RecordingStart start{time, StartSource::Given, StartCertainty::Sure, {}};
    if (!zone)
        return start;
    const ZonedTime zoned = shownIn(*zone, time.date(), time.time());
    start.time = zoned.time;
    return zoned.doubt ? lessSure(start, *zoned.doubt) : start;
}

/// One that nothing shows is not what somebody meant.
void checkUse(const QCommandLineParser& parser, OptionValues& values) {
    if (!isAuto(parser) && !parser.isSet("export") && !parser.isSet("report") &&
        !parser.isSet("recap") && !parser.isSet("time-zone") && !isPackage(parser))
        values.reject(QStringLiteral(
            "--start-time needs --export, --report, --recap or --format camtrap-dp"));
}

} // namespace

ClockOptions readClock(const QCommandLineParser& parser, OptionValues& values) {
    ClockOptions options;
    const auto zone = readZone(parser, values);
    const auto pattern = readPattern(parser, values);
    if (!parser.isSet("start-time"))
        return options;
    checkUse(parser, values);
    if (isAuto(parser))
        options.search = {zone ? *zone : zoneOfMachine(), pattern};
    else
        options.given = givenStart(readStartTime(parser.value("start-time"), values), zone);
    options.areTold = options.search || zone;
    return options;
}
