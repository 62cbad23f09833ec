// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "fileurl.h"

#include "filenamecodec.h"

namespace {

QString encoded(uchar byte) {
    return QLatin1Char('%') + QString::number(byte, 16).toUpper();
}

} // namespace

QUrl fileUrl(const QString& path) {
    QString text = QStringLiteral("file:///");
    for (int i = 0; i < path.size(); ++i) {
        const QChar character = path[i];
        const bool isSecondHalf = i > 0 && path[i - 1].isHighSurrogate();
        const uchar byte = isSecondHalf ? 0 : undecodedByte(character);
        if (byte)
            text += encoded(byte);
        else if (QStringLiteral("#?%").contains(character))
            text += encoded(uchar(character.toLatin1()));
        else
            text += character;
    }
    return QUrl(text);
}
