// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "h264header.h"

#include "files.h"

#include <QByteArray>

namespace {

/// Bits of a parameter set without the bytes that keep start codes out of it.
class Bits {
public:
    explicit Bits(const QByteArray& bytes)
        : bytes(bytes) {}

    int position() const { return place; }

    int read() {
        const int byte = place / 8 < bytes.size() ? quint8(bytes[place / 8]) : 0;
        return byte >> (7 - place++ % 8) & 1;
    }

    void skip(int count) { place += count; }

    int readExponential() {
        int zeros = 0;
        while (zeros < 31 && read() == 0)
            ++zeros;
        int value = 1;
        for (int i = 0; i < zeros; ++i)
            value = value << 1 | read();
        return value - 1;
    }

    void skipExponential(int count) {
        while (count-- > 0)
            readExponential();
    }

private:
    QByteArray bytes;
    int place = 0;
};

bool hasChroma(int profile) {
    return profile == 100 || profile == 110 || profile == 122 || profile == 244;
}

/// Where the flag stands that says whether usability information follows, in bits.
int placeOfFlag(const QByteArray& set) {
    Bits bits(set);
    bits.skip(32); // header, profile, constraints, level
    bits.skipExponential(1);
    if (hasChroma(quint8(set[1]))) {
        bits.skipExponential(3);
        bits.skip(2); // without lists of scaling factors, which the test's encoder does not write
    }
    bits.skipExponential(1);
    if (bits.readExponential() == 0) // else the order is that of decoding
        bits.skipExponential(1);
    bits.skipExponential(1);
    bits.skip(1);
    bits.skipExponential(2);
    if (bits.read() == 0) // fields
        bits.skip(1);
    bits.skip(1);
    if (bits.read() == 1) // a cropped picture
        bits.skipExponential(4);
    return bits.position();
}

} // namespace

bool removeUsabilityInformation(const QString& mp4) {
    QByteArray bytes = readFile(mp4);
    constexpr int lengthPlace = 10; // behind the box's name and six bytes
    const int box = bytes.indexOf("avcC");
    if (box < 0)
        return false;
    const int begin = box + lengthPlace + 2;
    const int length = quint8(bytes[begin - 2]) << 8 | quint8(bytes[begin - 1]);
    const QByteArray set = bytes.mid(begin, length);
    const int flag = placeOfFlag(set);
    // The flag must not stand behind a byte that only keeps start codes out.
    if (set.left(flag / 8).contains(QByteArray("\0\0\3", 3)) || flag / 8 + 1 >= length)
        return false;
    Bits bits(set);
    bits.skip(flag);
    if (bits.read() != 1)
        return false;
    // The flag, then the bit that ends every set, then nothing but zeros, which do not count.
    QByteArray changed(length, '\0');
    for (int i = 0; i < flag; ++i)
        changed[i / 8] = char(changed[i / 8] | (quint8(set[i / 8]) & (0x80 >> i % 8)));
    changed[(flag + 1) / 8] = char(changed[(flag + 1) / 8] | (0x80 >> (flag + 1) % 8));
    bytes.replace(begin, length, changed);
    return writeFile(mp4, bytes);
}
