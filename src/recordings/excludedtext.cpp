// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "excludedtext.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr qlonglong farthest = 1 << 30; // far corners must still fit an int

std::optional<QRect> rectangleOf(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral(
        R"(^(-?\d{1,10})\s*,\s*(-?\d{1,10})\s*,\s*(\d{1,10})\s*[x,×]\s*(\d{1,10})$)"));
    const auto match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const auto number = [&match](int group) { return match.captured(group).toLongLong(); };
    const bool isNear = qAbs(number(1)) <= farthest && qAbs(number(2)) <= farthest &&
                        number(3) <= farthest && number(4) <= farthest;
    if (!isNear || number(3) < 1 || number(4) < 1)
        return std::nullopt;
    return QRect(int(number(1)), int(number(2)), int(number(3)), int(number(4)));
}

} // namespace

std::optional<QVector<QRect>> rectanglesOf(const QString& text) {
    QVector<QRect> rectangles;
    for (const QString& part : text.split(QLatin1Char(';'))) {
        const QString trimmed = part.trimmed();
        if (trimmed.isEmpty())
            continue;
        const auto rectangle = rectangleOf(trimmed);
        if (!rectangle)
            return std::nullopt;
        rectangles.append(*rectangle);
    }
    return rectangles;
}

QString rectanglesText(const QVector<QRect>& rectangles) {
    QStringList parts;
    for (const QRect& one : rectangles)
        parts += QStringLiteral("%1,%2,%3x%4")
                     .arg(one.x())
                     .arg(one.y())
                     .arg(one.width())
                     .arg(one.height());
    return parts.join(QStringLiteral("; "));
}
