// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hugepictures.h"

#include "files.h"

#include <QtEndian>

namespace {

QByteArray littleEndian(int value) {
    QByteArray bytes(2, '\0');
    qToLittleEndian(quint16(value), bytes.data());
    return bytes;
}

} // namespace

namespace media {

bool writeGif(const QString& fileName, int width, int height, int pictures) {
    QByteArray gif = "GIF89a" + littleEndian(width) + littleEndian(height) +
                     QByteArray("\x80\0\0\0\0\0\xff\xff\xff", 9);
    for (int i = 0; i < pictures; ++i) {
        gif += QByteArray("\x21\xf9\x04\0\x0a\0\0\0\x2c", 9); // shown for 0.1 s
        gif += littleEndian(i % width) + littleEndian(0);
        // One white pixel: clear, 1, end, in codes of three bits.
        gif += QByteArray("\1\0\1\0\0\2\2\x4c\1\0", 10);
    }
    return writeFile(fileName, gif + ';');
}

bool changePngSize(const QString& fileName, int number, int width, int height) {
    QByteArray content = readFile(fileName);
    int header = -1;
    for (int i = 0; i <= number; ++i) {
        header = content.indexOf("IHDR", header + 1);
        if (header < 0)
            return false;
    }
    qToBigEndian(quint32(width), content.data() + header + 4);
    qToBigEndian(quint32(height), content.data() + header + 8);
    return writeFile(fileName, content);
}

} // namespace media
