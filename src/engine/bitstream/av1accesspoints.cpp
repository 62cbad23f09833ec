// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "av1accesspoints.h"

#include "parametersets.h"

#include <cstdint>

namespace {

enum UnitType { Sequence = 1, FrameHeader = 3, Frame = 6 };

struct Unit {
    int type = 0;
    PacketBytes payload;
    std::int64_t end = 0; ///< in the packet
};

/// The unit that begins at `begin`; the last one where it does not fit.
Unit unitAt(const PacketBytes& packet, std::int64_t begin) {
    const int header = packet.at(begin);
    const bool hasExtension = (header & 4) != 0;
    const bool hasSize = (header & 2) != 0;
    std::int64_t at = begin + (hasExtension ? 2 : 1);
    std::int64_t size = packet.size() - at;
    if (hasSize) {
        constexpr int mostSizeBytes = 4; // of a packet that fits an int
        size = 0;
        bool goesOn = true;
        for (int i = 0; i < mostSizeBytes && goesOn; ++i, ++at) {
            size |= std::int64_t(packet.at(at) & 127) << (7 * i);
            goesOn = packet.at(at) >= 128;
        }
    }
    const bool fits = size >= 0 && size <= packet.size() - at;
    const std::int64_t end = fits ? at + size : packet.size();
    return {header >> 3 & 15, packet.part(at, end), end};
}

class Av1AccessPoints : public CodecAccessPoints {
public:
    PacketKind kindOf(const PacketBytes& packet, bool isKey) override;

private:
    ParameterSets sets{1};
};

PacketKind Av1AccessPoints::kindOf(const PacketBytes& packet, bool /*isKey*/) {
    constexpr int reducedHeaderBit = 4; // behind the profile in three bits and another one
    bool isStill = false;
    bool isKey = false;
    bool hasFrame = false;
    sets.beginPacket();
    for (std::int64_t at = 0; at < packet.size() && !hasFrame;) {
        const Unit unit = unitAt(packet, at);
        if (unit.type == Sequence) {
            sets.addOfPacket(Sequence, unit.payload);
            isStill = unit.payload.bit(reducedHeaderBit) == 1;
        }
        hasFrame = unit.type == Frame || unit.type == FrameHeader;
        // A picture shown again, then the type in two bits, then whether it is shown.
        isKey = hasFrame && unit.payload.size() > 0 && unit.payload.bits(0, 4) == 1;
        at = unit.end;
    }
    PacketKind kind;
    if (isKey && !isStill && sets.areAllKnown())
        kind.access = PacketKind::Access::ClosedGop;
    kind.isDiscontinuity = sets.areChanged() || sets.areTooMany();
    return kind;
}

} // namespace

std::unique_ptr<CodecAccessPoints> av1AccessPoints() {
    return std::make_unique<Av1AccessPoints>();
}
