// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "htmltext.h"

#include "filenamecodec.h"
#include "steering.h"

#include <QFile>

#include <functional>

namespace {

/// The escape of the character at a place; null where it stands for itself.
QString escapeAt(const QString& text, int place) {
    const QChar character = text[place];
    const bool isSecondHalf = place > 0 && text[place - 1].isHighSurrogate();
    if (!character.isLowSurrogate() || isSecondHalf)
        return steeringEscape(text, place);
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

QByteArray isolatedText(const QString& text, const QByteArray& htmlClass) {
    const QByteArray start =
        htmlClass.isEmpty() ? QByteArray("<bdi>") : "<bdi class=\"" + htmlClass + "\">";
    return start + htmlText(text) + "</bdi>";
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
