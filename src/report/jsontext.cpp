// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "jsontext.h"

#include "clocktext.h"
#include "escaping.h"
#include "filenamecodec.h"

namespace {

QString unicodeEscape(ushort code) {
    return QStringLiteral("\\u%1").arg(code, 4, 16, QLatin1Char('0'));
}

QString jsonEscape(const QString& text, int place) {
    const QChar character = text[place];
    const bool isPair =
        character.isLowSurrogate() && place > 0 && text[place - 1].isHighSurrogate();
    if (!isPair && undecodedByte(character) != 0)
        return unicodeEscape(0xfffd);
    if (isSteering(character) || QStringLiteral("\"\\<>&").contains(character))
        return unicodeEscape(character.unicode());
    return {};
}

} // namespace

QByteArray jsonText(const QString& text) {
    return '"' + escaped(text, jsonEscape).toUtf8() + '"';
}

QByteArray jsonSeconds(double seconds) {
    return QByteArray::number(sensibleTime(seconds), 'g', 17);
}
