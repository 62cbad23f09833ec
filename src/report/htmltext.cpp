// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "htmltext.h"

#include "filenamecodec.h"

#include <QFile>

#include <functional>

namespace {

QString byteEscape(uchar byte) {
    return QStringLiteral("\\x%1").arg(int(byte), 2, 16, QLatin1Char('0'));
}

bool isControl(QChar character) {
    return character.category() == QChar::Other_Control ||
           character.category() == QChar::Separator_Line ||
           character.category() == QChar::Separator_Paragraph;
}

QString controlEscape(QChar character) {
    if (character == QLatin1Char('\n'))
        return QStringLiteral("\\n");
    if (character == QLatin1Char('\t'))
        return QStringLiteral("\\t");
    QString escapes;
    for (const char byte : QString(character).toUtf8())
        escapes += byteEscape(uchar(byte));
    return escapes;
}

/// The escape of the character at a place; null where it stands for itself.
QString escapeAt(const QString& text, int place) {
    const QChar character = text[place];
    const bool isSecondHalf = place > 0 && text[place - 1].isHighSurrogate();
    if (isControl(character))
        return controlEscape(character);
    if (!character.isLowSurrogate() || isSecondHalf)
        return {};
    return byteEscape(undecodedByte(character));
}

using Escape = std::function<QString(const QString& text, int place)>;

QString replaced(const QString& text, const Escape& escape) {
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        const QString other = escape(text, i);
        result += other.isNull() ? QString(text[i]) : other;
    }
    return result;
}

QString shown(const QString& text) {
    return replaced(text, escapeAt);
}

} // namespace

QByteArray htmlText(const QString& text) {
    return shown(text).toHtmlEscaped().replace(QLatin1Char('\''), QStringLiteral("&#39;")).toUtf8();
}

QByteArray fileReference(const QString& path, const QString& folder) {
    const QString inside = folder.endsWith('/') ? folder : folder + '/';
    if (path.startsWith(inside))
        return QFile::encodeName(path.mid(inside.size())).toPercentEncoding("/");
    return "file://" + QFile::encodeName(path).toPercentEncoding("/");
}

QString shellWord(const QString& text) {
    const QString plain = shown(text);
    if (plain == text)
        return '\'' + QString(text).replace('\'', QStringLiteral("'\\''")) + '\'';
    const auto quoted = [](const QString& all, int place) {
        const QChar character = all[place];
        if (character == QLatin1Char('\\') || character == QLatin1Char('\''))
            return QStringLiteral("\\") + character;
        return escapeAt(all, place);
    };
    return QStringLiteral("$'") + replaced(text, quoted) + '\'';
}
