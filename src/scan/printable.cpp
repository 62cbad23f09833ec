// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "printable.h"

#include <QFile>

namespace {

bool isSteering(QChar character) {
    return character.category() == QChar::Other_Control ||
           character.category() == QChar::Separator_Line ||
           character.category() == QChar::Separator_Paragraph;
}

QString escaped(QChar character) {
    switch (character.unicode()) {
    case '\n':
        return QStringLiteral("\\n");
    case '\t':
        return QStringLiteral("\\t");
    case '\r':
        return QStringLiteral("\\r");
    default:
        break;
    }
    QString escapes;
    for (const char byte : QFile::encodeName(character))
        escapes += QStringLiteral("\\x%1").arg(uchar(byte), 2, 16, QLatin1Char('0'));
    return escapes;
}

} // namespace

QString printable(const QString& text) {
    QString line;
    for (const QChar character : text) {
        if (character == QLatin1Char('\\'))
            line += QStringLiteral("\\\\");
        else
            line += isSteering(character) ? escaped(character) : QString(character);
    }
    return line;
}
