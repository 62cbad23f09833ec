// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "codecaccesspoints.h"

namespace {

constexpr int keyFrame = 0; // both codecs' bit for the frame type

// RFC 6386, 9.1: of a key frame the frame tag of three bytes, the start code and the size in four.
bool isVp8Key(const PacketBytes& packet) {
    constexpr int tagBits = 3 * 8;
    constexpr int startCode = 0x9D012A;
    constexpr int headerBytes = 10;
    constexpr int typeBit = 7; // the lowest one of the first byte
    return packet.size() >= headerBytes && packet.bit(typeBit) == keyFrame &&
           packet.bits(tagBits, 24) == startCode;
}

// VP9 bitstream specification, 6.2: frame_marker, the profile's two bits, a reserved one in the
// highest profile, show_existing_frame, frame_type.
bool isVp9Key(const PacketBytes& packet) {
    constexpr int frameMarker = 2;
    if (packet.size() < 2 || packet.bits(0, 2) != frameMarker)
        return false;
    const bool isHighestProfile = packet.bits(2, 2) == 3;
    const int behindProfile = isHighestProfile ? 5 : 4;
    const bool showsExisting = packet.bit(behindProfile) == 1;
    return !showsExisting && packet.bit(behindProfile + 1) == keyFrame;
}

using KeyTest = bool (*)(const PacketBytes& packet);

class KeyAccessPoints : public CodecAccessPoints {
public:
    explicit KeyAccessPoints(KeyTest test)
        : test(test) {}

    PacketKind kindOf(const PacketBytes& packet, bool isKey) override {
        PacketKind kind;
        if (isKey && test(packet))
            kind.access = PacketKind::Access::ClosedGop;
        return kind;
    }

private:
    KeyTest test;
};

} // namespace

std::unique_ptr<CodecAccessPoints> vp8AccessPoints(const PacketBytes& /*header*/) {
    return std::make_unique<KeyAccessPoints>(isVp8Key);
}

std::unique_ptr<CodecAccessPoints> vp9AccessPoints(const PacketBytes& /*header*/) {
    return std::make_unique<KeyAccessPoints>(isVp9Key);
}
