// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stretchcutter.h"

#include <new>

namespace {

PacketPointer referenceTo(const AVPacket& packet) {
    PacketPointer reference(av_packet_clone(&packet));
    if (!reference)
        throw std::bad_alloc();
    return reference;
}

} // namespace

StretchCutter::StretchCutter(PacketReader& reader, std::shared_ptr<StretchStream> stream,
                             const StretchPlan& plan)
    : reader(reader)
    , stream(std::move(stream))
    , plan(plan)
    , borders(*reader.stream()->codecpar) {}

bool StretchCutter::read() {
    auto packet = reader.read();
    if (!packet) {
        endOpenBorder();
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
    const PacketKind kind = borders.next(*packet->packet);
    add(std::move(*packet), kind);
    return true;
}

void StretchCutter::add(NumberedPacket packet, const PacketKind& kind) {
    hasLeading = hasLeading || kind.isLeading;
    if (next && kind.isLeading) {
        addLeading(std::move(packet), kind.isSuspect);
        return;
    }
    endOpenBorder();
    if (!current)
        current = makeStretch();
    else if (isBorder(kind)) {
        next = makeStretch();
        if (kind.border == PacketKind::Border::Closed)
            endOpenBorder();
    }
    Stretch& target = next ? *next : *current;
    target.isInDoubt = target.isInDoubt || kind.isSuspect;
    target.isDamaged = target.isDamaged || (packet.packet->flags & AV_PKT_FLAG_CORRUPT) != 0;
    target.add(std::move(packet));
}

/// It needs what lies before the border and comes behind the picture there: both are decoded at the
/// end of the stretch before, too.
void StretchCutter::addLeading(NumberedPacket packet, bool isSuspect) {
    if (current->tail.empty())
        current->tail.push_back(referenceTo(*next->packets.front().packet));
    current->tail.push_back(referenceTo(*packet.packet));
    current->isInDoubt = current->isInDoubt || isSuspect;
    ++next->leading;
    next->add(std::move(packet));
}

/// No leading packets follow any more.
void StretchCutter::endOpenBorder() {
    if (!next)
        return;
    finishCurrent();
    current = std::move(next);
}

bool StretchCutter::isBorder(const PacketKind& kind) const {
    const bool isOpen = kind.border == PacketKind::Border::Open && hasLeading;
    const int fewest = isOpen ? plan.fewestOpen : plan.fewestPackets;
    const bool isLong =
        int(current->packets.size()) >= fewest || current->bytes >= plan.enoughBytes;
    return isLong && kind.border != PacketKind::Border::None;
}

void StretchCutter::finishCurrent() {
    current->index = count++;
    whole.push_back(std::move(current));
}

StretchPointer StretchCutter::makeStretch() {
    return std::make_shared<Stretch>(stream);
}

bool StretchCutter::isTooLong() const {
    return current &&
           (int(current->packets.size()) > plan.mostPackets || current->bytes > plan.mostBytes);
}

const PacketMark* StretchCutter::mark(qint64 number) const {
    const bool isKnown = number >= firstMark && number < firstMark + qint64(marks.size());
    return isKnown ? &marks[std::size_t(number - firstMark)] : nullptr;
}

void StretchCutter::forgetBefore(qint64 number) {
    while (firstMark < number && !marks.empty()) {
        marks.pop_front();
        ++firstMark;
    }
}

std::vector<StretchPointer> StretchCutter::unfinished() const {
    std::vector<StretchPointer> stretches;
    for (const StretchPointer& stretch : {current, next}) {
        if (stretch)
            stretches.push_back(stretch);
    }
    return stretches;
}
