// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "escapedbytes.h"

namespace {

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
