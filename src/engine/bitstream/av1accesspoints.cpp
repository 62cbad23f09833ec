// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "codecaccesspoints.h"

#include "av1units.h"
#include "parametersets.h"

namespace {

// Clauses are those of the AV1 bitstream specification.

/// show_existing_frame, frame_type in two bits and show_frame (5.9.2): a new frame, a key frame,
/// shown.
bool isShownKey(const PacketBytes& frame) {
    return frame.size() > 0 && frame.bits(0, 4) == 0b0001;
}

class Av1AccessPoints : public CodecAccessPoints {
public:
    PacketKind kindOf(const PacketBytes& packet, bool isKey) override;

private:
    ParameterSets sets{1};
};

PacketKind Av1AccessPoints::kindOf(const PacketBytes& packet, bool /*isKey*/) {
    constexpr int reducedStillBit = 4; // behind seq_profile in three and still_picture (5.5.1)
    bool isStill = false;
    bool isKey = false;
    bool hasFrame = false;
    sets.beginPacket();
    for (std::int64_t at = 0; at < packet.size() && !hasFrame;) {
        const Av1Unit unit = av1UnitAt(packet, at);
        if (unit.type == Av1Unit::SequenceHeader) {
            sets.addOfPacket(Av1Unit::SequenceHeader, unit.payload);
            isStill = unit.payload.bit(reducedStillBit) == 1;
        }
        hasFrame = isFrame(unit);
        isKey = hasFrame && isShownKey(unit.payload);
        at = unit.end;
    }
    PacketKind kind;
    if (isKey && !isStill && sets.areAllKnown())
        kind.access = PacketKind::Access::ClosedGop;
    kind.isDiscontinuity = sets.areChanged() || sets.areTooMany();
    return kind;
}

} // namespace

std::unique_ptr<CodecAccessPoints> av1AccessPoints(const PacketBytes& /*header*/) {
    return std::make_unique<Av1AccessPoints>();
}
