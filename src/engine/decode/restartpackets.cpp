// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "restartpackets.h"

namespace {

// A few seconds of any camera's stream; more would show beside what the decoder itself takes.
constexpr qint64 mostBytes = 16 * 1024 * 1024;

bool isKey(const NumberedPacket& packet) {
    return (packet.packet->flags & AV_PKT_FLAG_KEY) != 0;
}

} // namespace

void RestartPackets::add(const NumberedPacket& packet) {
    const int size = packet.packet->size;
    while (!packets.empty() && bytes + size > mostBytes)
        dropUpTo(laterKeys.empty() ? packet.number : laterKeys.front());
    const bool canBeFirst = packet.number == 0 || isKey(packet);
    if ((packets.empty() && !canBeFirst) || size > mostBytes)
        return;
    PacketPointer reference(av_packet_clone(packet.packet.get()));
    if (!reference) {
        dropUpTo(packet.number);
        return;
    }
    if (!packets.empty() && isKey(packet))
        laterKeys.push_back(packet.number);
    bytes += size;
    packets.push_back({packet.number, std::move(reference)});
}

void RestartPackets::handedOut(qint64 number) {
    lastHandedOut = number;
    // The oldest packet can be any key frame that has another one between it and the last picture.
    while (laterKeys.size() >= 2 && laterKeys[1] <= number)
        dropUpTo(laterKeys.front());
}

std::deque<NumberedPacket> RestartPackets::take() {
    if (!canBegin())
        return {};
    return std::move(packets);
}

bool RestartPackets::canBegin() const {
    if (packets.empty())
        return false;
    const bool hasKeyBetween = !laterKeys.empty() && laterKeys.front() <= lastHandedOut;
    return packets.front().number == 0 || hasKeyBetween;
}

void RestartPackets::dropUpTo(qint64 number) {
    while (!packets.empty() && packets.front().number < number) {
        bytes -= packets.front().packet->size;
        packets.pop_front();
    }
    while (!laterKeys.empty() && laterKeys.front() <= number)
        laterKeys.pop_front();
}
