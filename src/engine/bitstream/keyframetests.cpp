// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keyframetests.h"

namespace {

class KeyAccessPoints : public CodecAccessPoints {
public:
    explicit KeyAccessPoints(KeyTest test)
        : test(test) {}

    PacketKind kindOf(const PacketBytes& packet, bool isKey) override {
        const bool isAccessPoint = isKey && test(packet);
        return {isAccessPoint ? PacketKind::Access::ClosedGop : PacketKind::Access::None, false,
                false};
    }

private:
    KeyTest test;
};

} // namespace

bool isVp8Key(const PacketBytes& packet) {
    constexpr int startCode = 0x9D012A;
    return packet.size() > 9 && (packet.at(0) & 1) == 0 && packet.bits(3 * 8, 24) == startCode;
}

/// Of several pictures in a packet the first one counts: what follows it can use nothing older.
bool isVp9Key(const PacketBytes& packet) {
    constexpr int marker = 2;
    if (packet.size() < 2 || packet.bits(0, 2) != marker)
        return false;
    const bool isHighestProfile = packet.bits(2, 2) == 3;
    const int behindProfile = isHighestProfile ? 5 : 4;
    const bool repeatsPicture = packet.bit(behindProfile) == 1;
    const bool isInter = packet.bit(behindProfile + 1) == 1;
    return !repeatsPicture && !isInter;
}

bool isFlv1Key(const PacketBytes& packet) {
    constexpr int startBits = 17;
    constexpr int sizeBit = startBits + 5 + 8;
    if (packet.size() < 5 || packet.bits(0, startBits) != 1)
        return false;
    int typeBit = sizeBit + 3;
    const int size = packet.bits(sizeBit, 3);
    if (size < 2) // written out, in 8 bits or in 16 for each side
        typeBit += size == 0 ? 16 : 32;
    return packet.bits(typeBit, 2) == 0;
}

bool isH263Key(const PacketBytes& packet) {
    constexpr int startBits = 22;
    constexpr int start = 0x20;
    constexpr int kindBit = startBits + 8;
    if (packet.size() < 6 || packet.bits(0, startBits) != start)
        return false;
    constexpr int extended = 7;
    if (packet.bits(kindBit + 5, 3) != extended)
        return packet.bit(kindBit + 8) == 0;
    // The extension can leave out what stays as it was; then its type comes first.
    const bool isWhole = packet.bits(kindBit + 8, 3) == 1;
    return isWhole && packet.bits(kindBit + 8 + 3 + 18, 3) == 0;
}

bool isMsMpeg4v1Key(const PacketBytes& packet) {
    return packet.bits(0, 24) == 1 && packet.at(3) == 0 && packet.bits(32 + 5, 2) == 0;
}

bool isMsMpeg4Key(const PacketBytes& packet) {
    return packet.size() > 1 && packet.bits(0, 2) == 0;
}

bool isWmv2Key(const PacketBytes& packet) {
    return packet.size() > 1 && packet.bit(0) == 0;
}

/// The first symbol, of even odds, of a range coder.
bool isFfv1Key(const PacketBytes& packet) {
    constexpr int half = 0x7F80;
    return packet.size() > 2 && packet.bits(0, 16) >= half;
}

std::unique_ptr<CodecAccessPoints> keyAccessPoints(KeyTest test) {
    return std::make_unique<KeyAccessPoints>(test);
}
