// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "printable.h"

#include "escaping.h"

#include <QFile>

namespace {

QByteArray withoutSteering(const QByteArray& lines) {
    const auto escapeInLines = [](const QString& text, int place) {
        const bool endsLine = text[place] == '\n' || text.midRef(place, 2) == QLatin1String("\r\n");
        return endsLine ? QString() : steeringEscape(text, place);
    };
    return QFile::encodeName(escaped(QFile::decodeName(lines), escapeInLines));
}

} // namespace

QString printable(const QString& text) {
    return escaped(text, [](const QString& all, int place) {
        return all[place] == '\\' ? QStringLiteral("\\\\") : steeringEscape(all, place);
    });
}

QByteArray printableLines(const QByteArray& lines) {
    QByteArrayList pieces;
    for (const QByteArray& piece : lines.split('\0')) // behind which Qt takes no name on
        pieces += withoutSteering(piece);
    return pieces.join("\\x00");
}
