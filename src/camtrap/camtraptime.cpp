// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "camtraptime.h"

#include <QTimeZone>

QString secondBefore(const QDateTime& time) {
    // Qt leaves the zone out of local times.
    return time.addMSecs(-time.time().msec())
        .toOffsetFromUtc(time.offsetFromUtc())
        .toString(Qt::ISODate);
}

QString secondBehind(const QDateTime& time) {
    const bool isWhole = time.time().msec() == 0;
    return secondBefore(isWhole ? time : time.addSecs(1));
}
