// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "damagetext.h"

#include "clocktext.h"

#include <QStringList>

QString damageText(const Damage& damage) {
    QStringList parts;
    if (damage.packets > 0)
        parts += damage.packets == 1
                     ? QStringLiteral("1 packet could not be decoded")
                     : QStringLiteral("%1 packets could not be decoded").arg(damage.packets);
    if (damage.promised > 0.0)
        parts += QStringLiteral("of the %1 that its headers promise, %2 could be read")
                     .arg(preciseClockText(damage.promised), preciseClockText(damage.read));
    return QStringLiteral("damaged: ") + parts.join(QStringLiteral("; "));
}
