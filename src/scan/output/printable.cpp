// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "printable.h"

#include "escaping.h"

#include <QFile>

namespace {

QByteArray withoutSteering(const QByteArray& lines) {
    const QString text = QFile::decodeName(lines);
    QString shown;
    for (int i = 0; i < text.size(); ++i) {
        const bool endsLine = text[i] == '\n' || text.midRef(i, 2) == QLatin1String("\r\n");
        const QString escape = endsLine ? QString() : steeringEscape(text, i);
        shown += escape.isNull() ? QString(text[i]) : escape;
    }
    return QFile::encodeName(shown);
}

} // namespace

QString printable(const QString& text) {
    QString line;
    for (int i = 0; i < text.size(); ++i) {
        const QString escape = steeringEscape(text, i);
        if (!escape.isNull())
            line += escape;
        else if (text[i] == QLatin1Char('\\'))
            line += QStringLiteral("\\\\");
        else
            line += text[i];
    }
    return line;
}

QByteArray printableLines(const QByteArray& lines) {
    QByteArrayList pieces;
    for (const QByteArray& piece : lines.split('\0')) // behind which Qt takes no name on
        pieces += withoutSteering(piece);
    return pieces.join("\\x00");
}
