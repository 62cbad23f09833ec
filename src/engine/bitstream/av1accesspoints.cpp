// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "codecaccesspoints.h"

#include "parametersets.h"

#include <cstdint>

namespace {

// Clauses are those of the AV1 bitstream specification. Types of open bitstream units (6.2.2):
enum ObuType { SequenceHeader = 1, FrameHeader = 3, Frame = 6 };

struct Obu {
    int type = 0;
    PacketBytes payload;
    std::int64_t end = 0; ///< in the packet
};

/// A number of several bytes (4.10.5) that begins at `at`, which moves behind it.
std::int64_t leb128(const PacketBytes& packet, std::int64_t& at) {
    constexpr int mostBytes = 4; // of a size in a packet that fits an int
    std::int64_t number = 0;
    bool goesOn = true;
    for (int i = 0; i < mostBytes && goesOn; ++i, ++at) {
        number |= std::int64_t(packet.at(at) & 0x7F) << (7 * i);
        goesOn = (packet.at(at) & 0x80) != 0;
    }
    return number;
}

/// The unit that begins at `begin`; the last one where it does not fit.
Obu obuAt(const PacketBytes& packet, std::int64_t begin) {
    // obu_forbidden_bit, obu_type, obu_extension_flag, obu_has_size_field, a reserved bit (5.3.2).
    const PacketBytes header = packet.part(begin, begin + 1);
    const bool hasExtension = header.bit(5) == 1;
    const bool hasSize = header.bit(6) == 1;
    std::int64_t at = begin + (hasExtension ? 2 : 1);
    const std::int64_t size = hasSize ? leb128(packet, at) : packet.size() - at;
    const bool fits = size >= 0 && size <= packet.size() - at;
    const std::int64_t end = fits ? at + size : packet.size();
    return {header.bits(1, 4), packet.part(at, end), end};
}

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
        const Obu obu = obuAt(packet, at);
        if (obu.type == SequenceHeader) {
            sets.addOfPacket(SequenceHeader, obu.payload);
            isStill = obu.payload.bit(reducedStillBit) == 1;
        }
        hasFrame = obu.type == Frame || obu.type == FrameHeader;
        isKey = hasFrame && isShownKey(obu.payload);
        at = obu.end;
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
