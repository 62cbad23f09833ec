// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recordingstart.h"

#include <QTimeZone>

#include <optional>

/// What a clock on the wall has shown, as a time of its zone.
struct ZonedTime {
    QDateTime time;                  ///< invalid where `date` or `time` are
    std::optional<StartDoubt> doubt; ///< HourMissing, HourTwice or nothing
};

/// The time at which a clock in `zone` shows this. An hour that the clock was put forward over is
/// taken as if it had not been, so that it is shown an hour later; of one that came twice the first
/// is taken.
ZonedTime shownIn(const QTimeZone& zone, const QDate& date, const QTime& time);

/// The zone of that name, such as Europe/Berlin or UTC; nothing where there is none.
std::optional<QTimeZone> zoneNamed(const QString& name);

/// That of this machine; its present distance from UTC where it has no name.
QTimeZone zoneOfMachine();
