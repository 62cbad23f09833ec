// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "h264sets.h"

#include "bitcursor.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t mostSetBytes = 1024; // with every list of scaling factors
constexpr int behindHeader = 8;

/// 7.3.2.1.1: profiles whose sets tell of chroma and scaling.
bool tellsChroma(int profile) {
    constexpr std::array<int, 13> profiles = {100, 110, 122, 244, 44,  83, 86,
                                              118, 128, 138, 139, 134, 135};
    return std::find(profiles.begin(), profiles.end(), profile) != profiles.end();
}

/// 7.3.2.1.1.1.
void skipScalingList(BitCursor& bits, int size) {
    int last = 8;
    int next = 8;
    for (int i = 0; i < size && next != 0 && bits.isSound(); ++i) {
        next = int((last + bits.signedGolomb() % 256 + 256) % 256);
        last = next == 0 ? last : next;
    }
}

void skipScaling(BitCursor& bits, int chroma) {
    const int lists = chroma == 3 ? 12 : 8;
    for (int i = 0; i < lists; ++i) {
        if (bits.bit() == 1)
            skipScalingList(bits, i < 6 ? 16 : 64);
    }
}

void readChroma(BitCursor& bits, H264Sequence& set) {
    const std::int64_t chroma = bits.golomb();
    if (chroma == 3)
        set.areColoursSeparate = bits.bit() == 1;
    set.isGrey = chroma == 0 || set.areColoursSeparate;
    bits.golomb(); // bits of luma and of chroma samples
    bits.golomb();
    bits.skip(1);
    if (bits.bit() == 1)
        skipScaling(bits, int(chroma));
}

void readOrder(BitCursor& bits, H264Sequence& set) {
    set.orderType = int(bits.golomb());
    if (set.orderType == 0)
        set.orderBits = int(bits.golomb()) + 4;
    if (set.orderType != 1)
        return;
    set.isOrderAlwaysZero = bits.bit() == 1;
    bits.signedGolomb();
    bits.signedGolomb();
    const std::int64_t offsets = bits.golomb();
    for (std::int64_t i = 0; i < offsets && bits.isSound(); ++i)
        bits.signedGolomb();
}

} // namespace

std::vector<std::uint8_t> unescaped(const PacketBytes& unit, std::size_t most) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(most);
    int zeros = 0;
    for (std::int64_t i = 0; i < unit.size() && bytes.size() < most; ++i) {
        const int byte = unit.at(i);
        const bool isKeeper = zeros >= 2 && byte == 3;
        zeros = byte == 0 ? zeros + 1 : 0;
        if (!isKeeper)
            bytes.push_back(std::uint8_t(byte));
    }
    return bytes;
}

std::optional<H264Sequence> readH264Sequence(const PacketBytes& unit) {
    const std::vector<std::uint8_t> bytes = unescaped(unit, mostSetBytes);
    const PacketBytes set(bytes.data(), std::int64_t(bytes.size()));
    BitCursor bits(set, behindHeader);
    H264Sequence read;
    const int profile = bits.bits(8);
    bits.skip(16); // constraints and level
    read.id = int(bits.golomb());
    if (tellsChroma(profile))
        readChroma(bits, read);
    read.frameNumberBits = int(bits.golomb()) + 4;
    readOrder(bits, read);
    bits.golomb(); // references
    bits.skip(1);
    bits.golomb(); // width and height
    bits.golomb();
    read.areFramesAlone = bits.bit() == 1;
    const bool isPossible = read.frameNumberBits <= 16 && read.orderBits <= 16;
    return bits.isSound() && isPossible ? std::make_optional(read) : std::nullopt;
}

std::optional<H264Picture> readH264Picture(const PacketBytes& unit) {
    const std::vector<std::uint8_t> bytes = unescaped(unit, mostSetBytes);
    const PacketBytes set(bytes.data(), std::int64_t(bytes.size()));
    BitCursor bits(set, behindHeader);
    H264Picture read;
    read.id = int(bits.golomb());
    read.sequence = int(bits.golomb());
    read.isArithmetic = bits.bit() == 1;
    read.hasOrderOfBottom = bits.bit() == 1;
    const bool hasGroups = bits.golomb() > 0;
    for (int& count : read.references)
        count = int(bits.golomb()) + 1;
    read.isWeighted = bits.bit() == 1;
    read.weightingOfBoth = bits.bits(2);
    read.quantiser = 26 + int(bits.signedGolomb());
    bits.signedGolomb(); // of switching slices
    bits.signedGolomb(); // of chroma
    bits.skip(2);
    read.hasRedundant = bits.bit() == 1;
    return bits.isSound() && !hasGroups ? std::make_optional(read) : std::nullopt;
}
