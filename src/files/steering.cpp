// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "steering.h"

#include "filenamecodec.h"

namespace {

bool turnsDirection(QChar character) {
    const ushort code = character.unicode();
    const bool isMark = code == 0x200e || code == 0x200f || code == 0x061c;
    return isMark || (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
}

/// 0 if it is none.
uchar steeringByte(const QString& text, int place) {
    constexpr uchar lastControl = 0x9f;
    const bool isSecondHalf = place > 0 && text[place - 1].isHighSurrogate();
    const uchar byte = isSecondHalf ? 0 : undecodedByte(text[place]);
    return byte <= lastControl ? byte : 0;
}

} // namespace

bool isSteering(QChar character) {
    return character.category() == QChar::Other_Control ||
           character.category() == QChar::Separator_Line ||
           character.category() == QChar::Separator_Paragraph || turnsDirection(character);
}

QString steeringEscape(const QString& text, int place) {
    if (const uchar byte = steeringByte(text, place))
        return byteEscape(byte);
    if (!isSteering(text[place]))
        return {};
    switch (text[place].unicode()) {
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
    for (const char byte : QString(text[place]).toUtf8())
        escapes += byteEscape(uchar(byte));
    return escapes;
}

QString byteEscape(unsigned char byte) {
    return QStringLiteral("\\x%1").arg(int(byte), 2, 16, QLatin1Char('0'));
}
