// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "times.h"

#include "files.h"

namespace {

int byteAt(const QByteArray& content, int position) {
    return uchar(content[position]);
}

/// Where the packet's header begins that the transport packet at `position` starts; -1 if it starts
/// none of video.
int videoHeader(const QByteArray& content, int position) {
    const bool isStart = (byteAt(content, position + 1) & 0x40) != 0;
    const bool hasField = (byteAt(content, position + 3) & 0x20) != 0;
    const int header = position + 4 + (hasField ? 1 + byteAt(content, position + 4) : 0);
    const bool isVideo = content.mid(header, 3) == QByteArray("\0\0\1", 3) &&
                         (byteAt(content, header + 3) & 0xF0) == 0xE0;
    return isStart && isVideo ? header : -1;
}

} // namespace

namespace media {

bool removeTimes(const QString& fileName, const QSet<int>& packets) {
    constexpr int packetSize = 188;
    QByteArray content = readFile(fileName);
    int number = 0;
    int removed = 0;
    for (int position = 0; position + packetSize <= content.size(); position += packetSize) {
        const int header = videoHeader(content, position);
        if (header < 0 || !packets.contains(number++))
            continue;
        // No times, and stuffing where they stood.
        content[header + 7] = char(byteAt(content, header + 7) & 0x3F);
        const int length = byteAt(content, header + 8);
        content.replace(header + 9, length, QByteArray(length, '\xFF'));
        ++removed;
    }
    return removed == packets.size() && writeFile(fileName, content);
}

bool changeTimes(const QString& fileName, const std::function<quint32(quint32)>& newTime) {
    QByteArray content = readFile(fileName);
    const auto bigEndian = [&content](int position) {
        return quint32(byteAt(content, position) << 16 | byteAt(content, position + 1) << 8 |
                       byteAt(content, position + 2));
    };
    // A header of 9 bytes; then the size of the tag before, and the tag: type, size, time, its
    // highest byte, stream, data.
    for (int tag = 13; tag + 11 <= content.size(); tag += 11 + int(bigEndian(tag + 1)) + 4) {
        const quint32 time = newTime(bigEndian(tag + 4) | quint32(byteAt(content, tag + 7)) << 24);
        content[tag + 4] = char(time >> 16);
        content[tag + 5] = char(time >> 8);
        content[tag + 6] = char(time);
        content[tag + 7] = char(time >> 24);
    }
    return !content.isEmpty() && writeFile(fileName, content);
}

} // namespace media
