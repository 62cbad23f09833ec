// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filenamecodec.h"

#include <QTextCodec>

namespace {

/// The registered numbers are positive.
constexpr int privateMib = -7001;

struct Range {
    uchar lowest;
    uchar highest;
};

/// What may follow the first byte of a sequence: it keeps out longer forms of shorter sequences,
/// surrogates, and what lies behind U+10FFFF.
Range secondByte(uchar first) {
    switch (first) {
    case 0xe0:
        return {0xa0, 0xbf};
    case 0xed:
        return {0x80, 0x9f};
    case 0xf0:
        return {0x90, 0xbf};
    case 0xf4:
        return {0x80, 0x8f};
    default:
        return {0x80, 0xbf};
    }
}

int lengthByFirstByte(uchar first) {
    if (first < 0x80)
        return 1;
    if (first >= 0xc2 && first <= 0xdf)
        return 2;
    if ((first & 0xf0) == 0xe0)
        return 3;
    return first >= 0xf0 && first <= 0xf4 ? 4 : 0;
}

/// The bytes of the character at the start of `text`; 0 if its first byte begins none.
int sequenceLength(const char* text, int size) {
    const auto* bytes = reinterpret_cast<const uchar*>(text);
    const int length = lengthByFirstByte(bytes[0]);
    if (length > size)
        return 0;
    Range range = secondByte(bytes[0]);
    for (int i = 1; i < length; ++i) {
        if (bytes[i] < range.lowest || bytes[i] > range.highest)
            return 0;
        range = {0x80, 0xbf};
    }
    return length;
}

class FileNameCodec : public QTextCodec {
public:
    QByteArray name() const override { return "kestrova-file-names"; }
    int mibEnum() const override { return privateMib; }

protected:
    QString convertToUnicode(const char* text, int size, ConverterState*) const override;
    QByteArray convertFromUnicode(const QChar* text, int size, ConverterState*) const override;
};

// Keeps no state: a name is whole, and one that ends in the middle of a character is a name, too.
QString FileNameCodec::convertToUnicode(const char* text, int size, ConverterState*) const {
    QString name;
    int position = 0;
    while (position < size) {
        const int length = sequenceLength(text + position, size - position);
        if (length == 0)
            name += QChar(0xdc00 + uchar(text[position]));
        else if (length == 3) // fromUtf8 drops a byte order mark
            name += QChar(ushort((text[position] & 0xf) << 12 | (text[position + 1] & 0x3f) << 6 |
                                 (text[position + 2] & 0x3f)));
        else
            name += QString::fromUtf8(text + position, length);
        position += qMax(1, length);
    }
    return name;
}

QByteArray FileNameCodec::convertFromUnicode(const QChar* text, int size, ConverterState*) const {
    QByteArray name;
    for (int i = 0; i < size; ++i) {
        const bool isPair =
            text[i].isHighSurrogate() && i + 1 < size && text[i + 1].isLowSurrogate();
        if (const uchar byte = undecodedByte(text[i]))
            name += char(byte);
        else
            name += QString(text + i, isPair ? 2 : 1).toUtf8();
        i += isPair ? 1 : 0;
    }
    return name;
}

} // namespace

void installFileNameCodec() {
    static auto* codec = new FileNameCodec; // Qt destroys it at the end
    QTextCodec::setCodecForLocale(codec);
}
