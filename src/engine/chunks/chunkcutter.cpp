// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunkcutter.h"

#include <new>

namespace {

PacketPointer referenceTo(const AVPacket& packet) {
    PacketPointer reference(av_packet_clone(&packet));
    if (!reference)
        throw std::bad_alloc();
    return reference;
}

} // namespace

ChunkCutter::ChunkCutter(PacketReader& reader, std::shared_ptr<ChunkStream> stream,
                         const ChunkPlan& plan)
    : reader(reader)
    , stream(std::move(stream))
    , plan(plan)
    , accessPoints(*reader.stream().codecpar) {}

bool ChunkCutter::read() {
    auto packet = reader.read();
    if (!packet) {
        endOpenGop();
        if (current) {
            current->isLast = true;
            finishCurrent();
        }
        return false;
    }
    if (packet->number == 0)
        stream->firstPacket = referenceTo(*packet->packet);
    bytes += packet->packet->size;
    marks.push_back({packet->packet->dts, reader.bytePosition()});
    const PacketKind kind = accessPoints.next(*packet->packet);
    add(std::move(*packet), kind);
    return true;
}

void ChunkCutter::add(NumberedPacket packet, const PacketKind& kind) {
    hasLeading = hasLeading || kind.isLeading;
    if (next && kind.isLeading) {
        addLeading(std::move(packet), kind.isDiscontinuity);
        return;
    }
    endOpenGop();
    if (!current)
        current = makeChunk();
    else if (isAccessPoint(kind)) {
        next = makeChunk();
        if (kind.access == PacketKind::Access::ClosedGop)
            endOpenGop();
    }
    Chunk& target = next ? *next : *current;
    target.hasMismatch = target.hasMismatch || kind.isDiscontinuity;
    target.isDamaged = target.isDamaged || (packet.packet->flags & AV_PKT_FLAG_CORRUPT) != 0;
    target.add(std::move(packet));
}

/// It needs what lies before the access point and comes behind the picture there: both are decoded
/// at the end of the chunk before, too.
void ChunkCutter::addLeading(NumberedPacket packet, bool isDiscontinuity) {
    if (current->tail.empty())
        current->tail.push_back(referenceTo(*next->packets.front().packet));
    current->tail.push_back(referenceTo(*packet.packet));
    current->hasMismatch = current->hasMismatch || isDiscontinuity;
    ++next->leading;
    next->add(std::move(packet));
}

/// No leading packets follow any more.
void ChunkCutter::endOpenGop() {
    if (!next)
        return;
    finishCurrent();
    current = std::move(next);
}

bool ChunkCutter::isAccessPoint(const PacketKind& kind) const {
    const bool isOpen = kind.access == PacketKind::Access::OpenGop && hasLeading;
    const int fewest = isOpen ? plan.fewestOpen : plan.fewestPackets;
    const bool isLong =
        int(current->packets.size()) >= fewest || current->bytes >= plan.enoughBytes;
    return isLong && kind.access != PacketKind::Access::None;
}

void ChunkCutter::finishCurrent() {
    current->index = count++;
    whole.push_back(std::move(current));
}

ChunkPointer ChunkCutter::makeChunk() {
    return std::make_shared<Chunk>(stream);
}

bool ChunkCutter::isTooLong() const {
    return current &&
           (int(current->packets.size()) > plan.mostPackets || current->bytes > plan.mostBytes);
}

const PacketMark* ChunkCutter::mark(qint64 number) const {
    const bool isKnown = number >= firstMark && number < firstMark + qint64(marks.size());
    return isKnown ? &marks[std::size_t(number - firstMark)] : nullptr;
}

void ChunkCutter::forgetBefore(qint64 number) {
    while (firstMark < number && !marks.empty()) {
        marks.pop_front();
        ++firstMark;
    }
}

std::vector<ChunkPointer> ChunkCutter::unfinished() const {
    std::vector<ChunkPointer> chunks;
    for (const ChunkPointer& chunk : {current, next}) {
        if (chunk)
            chunks.push_back(chunk);
    }
    return chunks;
}
