// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cameras.h"

#include <QDateTime>

#include <array>

constexpr int hoursOfDay = 24;

/// In which hours of the day a camera has recorded, on any day.
std::array<bool, hoursOfDay> recordedHours(const Camera& camera);

/// The hours from the first to the last in which a camera records. Where it rests by day, a night
/// is one day: they begin in the evening and go on behind midnight.
struct DayHours {
    int first = 0;
    int count = hoursOfDay;

    bool isNight() const { return first + count > hoursOfDay; }

    /// When the day began to which `time` belongs.
    QDateTime dayOf(const QDateTime& time) const;

    /// When the next one begins.
    QDateTime dayAfter(const QDateTime& day) const;
};

DayHours dayHours(const Camera& camera);
