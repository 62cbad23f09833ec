// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "timetext.h"

#include <QLocale>
#include <QRegularExpression>

std::optional<double> secondsOf(const QString& text) {
    static const QRegularExpression clock(
        QStringLiteral("^(?:(?:(\\d{1,6}):)?([0-5]?\\d):(?=[0-5]?\\d(?:\\.|$)))?"
                       "(\\d{1,9}(?:\\.\\d+)?)$"));
    const auto match = clock.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return match.captured(1).toInt() * 3600.0 + match.captured(2).toInt() * 60.0 +
           match.captured(3).toDouble();
}

QString plainSeconds(double seconds) {
    return QString::number(seconds, 'f', QLocale::FloatingPointShortest);
}
