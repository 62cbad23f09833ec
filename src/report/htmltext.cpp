// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "htmltext.h"

#include "escaping.h"
#include "filenames.h"

QByteArray htmlText(const QString& text) {
    return escaped(text, textEscape)
        .toHtmlEscaped()
        .replace(QLatin1Char('\''), QStringLiteral("&#39;"))
        .toUtf8();
}

QByteArray isolatedText(const QString& text, const QByteArray& htmlClass) {
    const QByteArray start =
        htmlClass.isEmpty() ? QByteArray("<bdi>") : "<bdi class=\"" + htmlClass + "\">";
    return start + htmlText(text) + "</bdi>";
}

QByteArray pathText(const QString& path) {
    const int fileName = path.lastIndexOf('/') + 1;
    return isolatedText(path.left(fileName), "folder") + "<wbr>" + isolatedText(path.mid(fileName));
}

QByteArray fileReference(const QString& path, const QString& folder) {
    const QString inside = folder.endsWith('/') ? folder : folder + '/';
    return path.startsWith(inside) ? encodedPath(path.mid(inside.size())) : encodedFileUrl(path);
}
