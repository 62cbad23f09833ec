// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "overlayfilter.h"

#include <QLocale>

QString overlayFilter(const QDate& date, int secondOfDay) {
    // The backslashes are the filter's: they keep the colons from ending an option.
    return QStringLiteral(R"(drawtext=fontfile=DejaVuSansMono.ttf:text='%1 %{pts\:hms\:%2}')"
                          ":x=10:y=10:fontcolor=white:box=1:boxborderw=3:boxcolor=0x00000000@1")
        .arg(QLocale::c().toString(date, QStringLiteral("ddd MMM d yyyy")))
        .arg(secondOfDay);
}
