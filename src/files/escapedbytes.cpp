// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "escapedbytes.h"

namespace {

bool isEscaped(char byte) {
    return (byte >= 0 && byte < ' ') || byte == '\x7f' || byte == '%';
}

} // namespace

QByteArray escapedBytes(const QByteArray& bytes) {
    QByteArray text;
    for (const char byte : bytes) {
        if (isEscaped(byte))
            text += '%' + QByteArray(1, byte).toHex().toUpper();
        else
            text += byte;
    }
    return text;
}

std::optional<QByteArray> unescapedBytes(const QByteArray& text) {
    QByteArray bytes;
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {
            bytes += QByteArray::fromHex(text.mid(i + 1, 2));
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    if (escapedBytes(bytes) != text)
        return std::nullopt;
    return bytes;
}
