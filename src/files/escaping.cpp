// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "escaping.h"

#include "filenamecodec.h"

#include <QFile>

namespace {

bool turnsDirection(QChar character) {
    const ushort code = character.unicode();
    const bool isMark = code == 0x200e || code == 0x200f || code == 0x061c;
    return isMark || (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
}

/// "\x1b" and the like.
QString byteEscape(uchar byte) {
    return QStringLiteral("\\x%1").arg(int(byte), 2, 16, QLatin1Char('0'));
}

/// Of the character at a place if it steers or is a byte up to `lastByte` that is no UTF-8.
QString escapeAt(const QString& text, int place, uchar lastByte) {
    const bool isSecondHalf = place > 0 && text[place - 1].isHighSurrogate();
    const uchar undecoded = isSecondHalf ? 0 : undecodedByte(text[place]);
    if (undecoded != 0 && undecoded <= lastByte)
        return byteEscape(undecoded);
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

QByteArray withoutSteering(const QByteArray& lines) {
    const auto escapeInLines = [](const QString& text, int place) {
        const bool endsLine = text[place] == '\n' || text.midRef(place, 2) == QLatin1String("\r\n");
        return endsLine ? QString() : steeringEscape(text, place);
    };
    return QFile::encodeName(escaped(QFile::decodeName(lines), escapeInLines));
}

/// All bytes but control characters and the percent sign.
QByteArray keptBytes() {
    QByteArray kept;
    for (int byte = ' '; byte <= 0xff; ++byte) {
        if (byte != 0x7f && byte != '%')
            kept += char(byte);
    }
    return kept;
}

} // namespace

bool isSteering(QChar character) {
    return character.category() == QChar::Other_Control ||
           character.category() == QChar::Separator_Line ||
           character.category() == QChar::Separator_Paragraph || turnsDirection(character);
}

QString steeringEscape(const QString& text, int place) {
    constexpr uchar lastControl = 0x9f;
    return escapeAt(text, place, lastControl);
}

QString textEscape(const QString& text, int place) {
    return escapeAt(text, place, 0xff);
}

QString shellWord(const QString& text) {
    if (escaped(text, textEscape) == text)
        return '\'' + QString(text).replace('\'', QStringLiteral("'\\''")) + '\'';
    const auto escapeInQuotes = [](const QString& all, int place) {
        const bool isSpecial = all[place] == '\\' || all[place] == '\'';
        return isSpecial ? QStringLiteral("\\") + all[place] : textEscape(all, place);
    };
    return QStringLiteral("$'") + escaped(text, escapeInQuotes) + '\'';
}

QString printable(const QString& text) {
    return escaped(text, [](const QString& all, int place) {
        return all[place] == '\\' ? QStringLiteral("\\\\") : steeringEscape(all, place);
    });
}

QString withoutMnemonics(QString text) {
    return text.replace('&', QStringLiteral("&&"));
}

QByteArray printableLines(const QByteArray& lines) {
    QByteArrayList pieces;
    for (const QByteArray& piece : lines.split('\0')) // behind which Qt takes no name on
        pieces += withoutSteering(piece);
    return pieces.join("\\x00");
}

QByteArray csvField(const QByteArray& bytes) {
    bool needsQuotes = false;
    for (const char special : {',', '"', '\r', '\n'})
        needsQuotes = needsQuotes || bytes.contains(special);
    return needsQuotes ? '"' + QByteArray(bytes).replace("\"", "\"\"") + '"' : bytes;
}

QByteArray escapedBytes(const QByteArray& bytes) {
    static const QByteArray kept = keptBytes();
    return bytes.toPercentEncoding(kept);
}

std::optional<QByteArray> unescapedBytes(const QByteArray& text) {
    const QByteArray bytes = QByteArray::fromPercentEncoding(text);
    if (escapedBytes(bytes) != text)
        return std::nullopt;
    return bytes;
}
