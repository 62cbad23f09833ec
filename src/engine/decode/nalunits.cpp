// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "nalunits.h"

namespace {

void addUnit(std::vector<PacketBytes>& units, const PacketBytes& unit) {
    const PacketBytes trimmed = unit.trimmed();
    if (trimmed.size() > 0)
        units.push_back(trimmed);
}

std::vector<PacketBytes> unitsBehindPrefixes(const PacketBytes& packet) {
    std::vector<PacketBytes> units;
    std::int64_t begin = packet.behindNextPrefix(0);
    while (begin < packet.size()) {
        const std::int64_t next = packet.behindNextPrefix(begin);
        // The next prefix is no part of the unit.
        const std::int64_t end = next < packet.size() ? next - 3 : next;
        addUnit(units, packet.part(begin, end));
        begin = next;
    }
    return units;
}

std::vector<PacketBytes> unitsBehindLengths(const PacketBytes& packet, int lengthBytes) {
    std::vector<PacketBytes> units;
    std::int64_t begin = 0;
    while (begin + lengthBytes < packet.size()) {
        std::int64_t length = 0;
        for (int i = 0; i < lengthBytes; ++i)
            length = length << 8 | packet.at(begin + i);
        begin += lengthBytes;
        if (length > packet.size() - begin)
            break;
        addUnit(units, packet.part(begin, begin + length));
        begin += length;
    }
    return units;
}

/// Adds `count` units, each behind two bytes that tell its length; answers where the last one ends.
std::int64_t addCounted(std::vector<PacketBytes>& units, const PacketBytes& header,
                        std::int64_t begin, int count) {
    for (int i = 0; i < count && begin < header.size(); ++i) {
        const std::int64_t end = begin + 2 + header.bits(begin * 8, 16);
        addUnit(units, header.part(begin + 2, end));
        begin = end;
    }
    return begin;
}

} // namespace

std::vector<PacketBytes> NalUnits::of(const PacketBytes& packet) const {
    return lengthBytes > 0 ? unitsBehindLengths(packet, lengthBytes) : unitsBehindPrefixes(packet);
}

NalHeader h264Header(const PacketBytes& header) {
    constexpr int fixedBytes = 5;
    if (header.at(0) != 1)
        return {0, unitsBehindPrefixes(header)};
    NalHeader parsed{(header.at(4) & 3) + 1, {}};
    const int sequenceSets = header.at(fixedBytes) & 31;
    const std::int64_t end = addCounted(parsed.units, header, fixedBytes + 1, sequenceSets);
    addCounted(parsed.units, header, end + 1, header.at(end));
    return parsed;
}

NalHeader hevcHeader(const PacketBytes& header) {
    constexpr int fixedBytes = 22;
    // Some writers leave the version 0; a prefix looks like no such header.
    const bool isPrefixed = header.at(0) == 0 && header.at(1) == 0 && header.at(2) <= 1;
    if (isPrefixed || header.size() <= fixedBytes)
        return {0, unitsBehindPrefixes(header)};
    NalHeader parsed{(header.at(21) & 3) + 1, {}};
    std::int64_t begin = fixedBytes + 1;
    for (int i = 0; i < header.at(fixedBytes) && begin < header.size(); ++i)
        begin = addCounted(parsed.units, header, begin + 3, header.bits((begin + 1) * 8, 16));
    return parsed;
}
