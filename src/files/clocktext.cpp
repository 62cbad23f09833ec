// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clocktext.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

QString clockText(qint64 seconds) {
    const QLatin1Char zero('0');
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, zero)
        .arg(seconds % 60, 2, 10, zero);
}

QString preciseClockText(double seconds) {
    const qint64 milliseconds = std::llround(std::abs(seconds) * 1000.0);
    const QString sign = seconds < 0.0 && milliseconds > 0 ? QStringLiteral("-") : QString();
    return sign + clockText(milliseconds / 1000) +
           QStringLiteral(".%1").arg(milliseconds % 1000, 3, 10, QLatin1Char('0'));
}

QString elapsedText(double seconds) {
    const auto whole = qint64(sensibleTime(seconds));
    return (whole < 0 ? QStringLiteral("-") : QString()) + clockText(std::abs(whole));
}

double sensibleTime(double seconds) {
    constexpr double longest = 1e12;
    return std::isnan(seconds) ? 0.0 : std::clamp(seconds, -longest, longest);
}

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
