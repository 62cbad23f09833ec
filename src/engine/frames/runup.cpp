// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runup.h"

#include "frame.h"

#include <algorithm>

RunUp::RunUp(const PartLead& lead, qint64 delay, const AVRational& timeBase)
    : lead(lead)
    , delay(delay)
    , timeBase(timeBase)
    , places(1) {}

RunUp::RunUp(qint64 packet, qint64 firstPicture, bool isClosed)
    : places{Place{packet, isClosed, firstPicture - packet}} {}

void RunUp::reach(const NumberedPacket& packet) {
    const double time = secondsOf(packet.packet->dts, timeBase);
    while (places.size() > 1 && isEarlyEnough(places[1], time))
        places.pop_front();
}

bool RunUp::isEarlyEnough(const Place& place, double time) const {
    return !lead.isThere() || place.time <= time - lead.seconds;
}

void RunUp::add(const NumberedPacket& packet, const PacketKind& kind) {
    if (kind.access != PacketKind::Access::None && packet.number > 0)
        places.push_back({packet.number, kind.access == PacketKind::Access::ClosedGop});
    places.back().leading += kind.isLeading ? 1 : 0;
    if (packet.packet->dts == AV_NOPTS_VALUE)
        return;
    // There may be as many places as packets.
    const qint64 number = packet.number - delay - lead.pictures;
    const auto isBefore = [](const Place& place, qint64 picture) {
        return place.firstPicture() < picture;
    };
    const auto place = std::lower_bound(places.begin(), places.end(), number, isBefore);
    if (place != places.end() && place->firstPicture() == number)
        place->time = secondsOf(packet.packet->dts, timeBase);
}

void RunUp::takeStart() {
    places.assign(1, Place());
}
