// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partreading.h"

#include "libavversions.h"

#include <algorithm>

PartReading::PartReading(const AVStream& stream, RecordingPart part, const PartLead& lead,
                         qint64 fileBytes, qint64 delay)
    : accessPoints(*stream.codecpar)
    , codec(stream.codecpar->codec_id)
    , part(part)
    , before(lead, delay, stream.time_base)
    , hasLead(lead.isThere())
    , fileBytes(fileBytes)
    , pictureDelay(delay)
    , size(stream.codecpar->width, stream.codecpar->height)
    , firstPacket(part.index == 1 ? 0 : -1) {}

PartReading::PartReading(const AVStream& stream, const PlacedPart& part, qint64 delay)
    : accessPoints(*stream.codecpar)
    , codec(stream.codecpar->codec_id)
    , before(part.runUp, part.firstSure, part.isClosed)
    , hasLead(true)
    , pictureDelay(delay)
    , size(stream.codecpar->width, stream.codecpar->height)
    , firstPacket(part.begin)
    , endPacket(part.end)
    , isAtEnd(part.isToTheEnd) {}

void PartReading::add(const NumberedPacket& packet) {
    if (packet.number < next)
        return;
    next = packet.number + 1;
    farthest = std::max(farthest, packet.packet->pos);
    const PacketKind kind = accessPoints.next(*packet.packet);
    if (firstPacket < 0)
        before.reach(packet);
    if (kind.access != PacketKind::Access::None && packet.number > 0)
        placeAccessPoint(packet.number);
    if (firstPacket < 0)
        before.add(packet, kind);
    if (kind.isDiscontinuity && endPacket < 0)
        lastDiscontinuity = packet.number;
}

/// An access point can be the end of several parts, which are empty then, all but one.
void PartReading::placeAccessPoint(qint64 packet) {
    const auto isBehind = [this](int parts) {
        return double(farthest) * part.count >= double(fileBytes) * parts;
    };
    if (firstPacket < 0 && isBehind(part.index - 1))
        firstPacket = packet;
    if (firstPacket >= 0 && endPacket < 0 && part.index < part.count && isBehind(part.index))
        endPacket = packet;
}

void PartReading::endReached() {
    if (firstPacket < 0)
        firstPacket = next;
    if (endPacket < 0) {
        endPacket = next;
        isAtEnd = true;
    }
}

qint64 PartReading::firstSure() const {
    return hasLead ? before.firstPicture() : std::max<qint64>(firstPacket - 1, 0);
}

bool PartReading::isInside(const AVFrame& picture, qint64 completedBy, bool isTimed) {
    const qint64 number = completedBy - pictureDelay;
    if (endPacket >= 0 && number >= endPacket)
        return false;
    if (!isWhereExpected(completedBy))
        areAllRegular = false;
    lastCompletedBy = completedBy;
    const bool isGood = isTimed && isSound(picture);
    areAllRegular = areAllRegular && (isGood || number < firstSure());
    return true;
}

/// Behind an open GOP the first pictures can be missing, but none that is sure.
bool PartReading::isWhereExpected(qint64 completedBy) const {
    const qint64 expected = lastCompletedBy < 0 ? runUp() + pictureDelay : lastCompletedBy + 1;
    return completedBy == expected ||
           (!before.isClosed() && completedBy <= firstSure() + pictureDelay);
}

// Fields of MPEG-4 Part 2 that refer to two pictures count on the first such picture of the stream.
bool PartReading::isSound(const AVFrame& picture) const {
    const bool isCounted = codec == AV_CODEC_ID_MPEG4 && isInterlaced(picture);
    return picture.width == size.width() && picture.height == size.height() && !isCounted &&
           (picture.flags & AV_FRAME_FLAG_CORRUPT) == 0 && picture.decode_error_flags == 0;
}

std::deque<NumberedPacket> skipToPart(PacketReader& reader, PartReading& part) {
    std::deque<NumberedPacket> packets;
    qint64 bytes = 0;
    while (!part.hasBegun()) {
        auto packet = reader.read();
        if (!packet)
            break;
        bytes += packet->packet->size;
        packets.push_back(std::move(*packet));
        while (!packets.empty() &&
               (packets.front().number < part.runUp() || bytes > mostSkippedBytes)) {
            bytes -= packets.front().packet->size;
            packets.pop_front();
        }
    }
    const bool isWhole = !packets.empty() && packets.front().number == part.runUp();
    if (!isWhole)
        packets.clear();
    return packets;
}
