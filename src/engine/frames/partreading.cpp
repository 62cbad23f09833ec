// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partreading.h"

#include "libavversions.h"

#include <algorithm>

PartReading::PartReading(const AVCodecParameters& parameters, RecordingPart part, qint64 fileBytes,
                         qint64 delay)
    : accessPoints(parameters)
    , codec(parameters.codec_id)
    , part(part)
    , fileBytes(fileBytes)
    , pictureDelay(delay)
    , size(parameters.width, parameters.height)
    , firstPacket(part.index == 1 ? 0 : -1) {}

void PartReading::add(const NumberedPacket& packet) {
    if (packet.number < next)
        return;
    next = packet.number + 1;
    farthest = std::max(farthest, packet.packet->pos);
    const PacketKind kind = accessPoints.next(*packet.packet);
    if (kind.access != PacketKind::Access::None && packet.number > 0)
        placeAccessPoints(packet.number, kind);
    // What lies before the run-up is another part's affair.
    if (kind.isDiscontinuity && endPacket < 0)
        areAllRegular = false;
}

/// An access point can be the end of several parts, which are empty then, all but one.
void PartReading::placeAccessPoints(qint64 packet, const PacketKind& kind) {
    const auto isBehind = [this](int parts) {
        return double(farthest) * part.count >= double(fileBytes) * parts;
    };
    if (firstPacket < 0 && isBehind(part.index - 1))
        firstPacket = packet;
    if (firstPacket >= 0 && endPacket < 0 && part.index < part.count && isBehind(part.index))
        endPacket = packet;
    if (firstPacket >= 0)
        return;
    runUpPacket = packet;
    isRunUpClosed = kind.access == PacketKind::Access::ClosedGop;
    areAllRegular = true;
}

void PartReading::endReached() {
    if (firstPacket < 0)
        firstPacket = next;
    if (endPacket < 0) {
        endPacket = next;
        isAtEnd = true;
    }
}

void PartReading::runUpFromStart() {
    runUpPacket = 0;
    isRunUpClosed = true;
}

bool PartReading::isInside(const AVFrame& picture, qint64 completedBy, bool isTimed) {
    const qint64 number = completedBy - pictureDelay;
    if (endPacket >= 0 && number >= endPacket)
        return false;
    if (!isWhereExpected(completedBy))
        areAllRegular = false;
    lastCompletedBy = completedBy;
    // The one before the part is compared with.
    const bool isItsOwn = number >= firstPacket - 1;
    const bool isGood = isTimed && isSound(picture);
    areAllRegular = areAllRegular && (isGood || !isItsOwn);
    return true;
}

/// Behind an open GOP the first pictures can be missing, but not the one before the part.
bool PartReading::isWhereExpected(qint64 completedBy) const {
    const qint64 expected = lastCompletedBy < 0 ? runUpPacket + pictureDelay : lastCompletedBy + 1;
    const qint64 beforePart = std::max<qint64>(firstPacket - 1, 0) + pictureDelay;
    return completedBy == expected || (!isRunUpClosed && completedBy <= beforePart);
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
