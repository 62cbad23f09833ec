// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "zonedtime.h"

#include <QRegularExpression>

namespace {

constexpr qint64 oneDay = 86400000; ///< milliseconds; no zone changes twice within two of them

qint64 offsetAt(const QTimeZone& zone, qint64 milliseconds) {
    return qint64(zone.offsetFromUtc(QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC))) * 1000;
}

} // namespace

ZonedTime shownIn(const QTimeZone& zone, const QDate& date, const QTime& time) {
    const QDateTime shown(date, time, Qt::UTC);
    if (!date.isValid() || !time.isValid() || !zone.isValid())
        return {};
    const qint64 wall = shown.toMSecsSinceEpoch();
    const qint64 before = offsetAt(zone, wall - oneDay);
    const qint64 after = offsetAt(zone, wall + oneDay);
    const bool isBefore = offsetAt(zone, wall - before) == before;
    const bool isAfter = offsetAt(zone, wall - after) == after;
    const qint64 offset = isBefore || !isAfter ? before : after;
    ZonedTime zoned{QDateTime::fromMSecsSinceEpoch(wall - offset, zone), std::nullopt};
    if (!isBefore && !isAfter)
        zoned.doubt = StartDoubt::HourMissing;
    else if (isBefore && isAfter && before != after)
        zoned.doubt = StartDoubt::HourTwice;
    return zoned;
}

std::optional<QTimeZone> zoneNamed(const QString& name) {
    static const QRegularExpression sensible(
        QStringLiteral("^[A-Za-z][A-Za-z0-9_+:-]*(?:/[A-Za-z0-9_+-]+){0,2}$"));
    if (name.size() > 64 || !sensible.match(name).hasMatch())
        return std::nullopt;
    const QTimeZone zone(name.toLatin1());
    return zone.isValid() ? std::optional<QTimeZone>(zone) : std::nullopt;
}

QTimeZone zoneOfMachine() {
    const QTimeZone zone = QTimeZone::systemTimeZone();
    return zone.isValid() ? zone : QTimeZone(QDateTime::currentDateTime().offsetFromUtc());
}
