// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "restartpackets.h"

namespace {

// A few seconds of any camera's stream; more would show beside what the decoder itself takes.
constexpr qint64 mostBytes = 16 * 1024 * 1024;

} // namespace

void RestartPackets::add(const NumberedPacket& packet, bool isAccessPoint) {
    const int size = packet.packet->size;
    while (!packets.empty() && bytes + size > mostBytes)
        dropUpTo(laterAccessPoints.empty() ? packet.number : laterAccessPoints.front());
    const bool canBeFirst = packet.number == 0 || isAccessPoint;
    if ((packets.empty() && !canBeFirst) || size > mostBytes)
        return;
    PacketPointer reference(av_packet_clone(packet.packet.get()));
    if (!reference) {
        dropUpTo(packet.number);
        return;
    }
    if (!packets.empty() && isAccessPoint)
        laterAccessPoints.push_back(packet.number);
    bytes += size;
    packets.push_back({packet.number, std::move(reference)});
}

void RestartPackets::handedOut(qint64 number) {
    lastHandedOut = number;
    // The oldest packet can be any access point that has another one between it and the last
    // picture.
    while (laterAccessPoints.size() >= 2 && laterAccessPoints[1] <= number)
        dropUpTo(laterAccessPoints.front());
}

std::deque<NumberedPacket> RestartPackets::take() {
    if (!canBegin())
        return {};
    return std::move(packets);
}

bool RestartPackets::canBegin() const {
    if (packets.empty())
        return false;
    const bool hasAccessPointBetween =
        !laterAccessPoints.empty() && laterAccessPoints.front() <= lastHandedOut;
    return packets.front().number == 0 || hasAccessPointBetween;
}

void RestartPackets::dropUpTo(qint64 number) {
    while (!packets.empty() && packets.front().number < number) {
        bytes -= packets.front().packet->size;
        packets.pop_front();
    }
    while (!laterAccessPoints.empty() && laterAccessPoints.front() <= number)
        laterAccessPoints.pop_front();
}
