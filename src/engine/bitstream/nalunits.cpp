// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "nalunits.h"

namespace {

bool giveUnit(const PacketBytes& unit, const UnitTaker& take) {
    const PacketBytes trimmed = unit.trimmed();
    return trimmed.size() == 0 || take(trimmed);
}

void forEachBehindPrefix(const PacketBytes& packet, const UnitTaker& take) {
    std::int64_t begin = packet.behindNextPrefix(0);
    bool isWanted = true;
    while (isWanted && begin < packet.size()) {
        const std::int64_t next = packet.behindNextPrefix(begin);
        // The next prefix is no part of the unit.
        const std::int64_t end = next < packet.size() ? next - 3 : next;
        isWanted = giveUnit(packet.part(begin, end), take);
        begin = next;
    }
}

void forEachBehindLength(const PacketBytes& packet, int lengthBytes, const UnitTaker& take) {
    std::int64_t begin = 0;
    bool isWanted = true;
    while (isWanted && begin + lengthBytes < packet.size()) {
        std::int64_t length = 0;
        for (int i = 0; i < lengthBytes; ++i)
            length = length << 8 | packet.at(begin + i);
        begin += lengthBytes;
        if (length > packet.size() - begin)
            return;
        isWanted = giveUnit(packet.part(begin, begin + length), take);
        begin += length;
    }
}

/// Takes units into a header for as long as it has room.
UnitTaker into(NalHeader& header) {
    return [&header](const PacketBytes& unit) {
        header.isCut = header.units.size() >= mostHeaderUnits;
        if (!header.isCut)
            header.units.push_back(unit);
        return !header.isCut;
    };
}

NalHeader prefixedHeader(const PacketBytes& header) {
    NalHeader parsed;
    forEachBehindPrefix(header, into(parsed));
    return parsed;
}

/// Adds `count` units, each behind two bytes that tell its length; answers where the last one ends.
std::int64_t addCounted(NalHeader& parsed, const PacketBytes& header, std::int64_t begin,
                        int count) {
    for (int i = 0; i < count && begin < header.size() && !parsed.isCut; ++i) {
        const std::int64_t end = begin + 2 + header.bits(begin * 8, 16);
        giveUnit(header.part(begin + 2, end), into(parsed));
        begin = end;
    }
    return begin;
}

} // namespace

void NalUnits::forEach(const PacketBytes& packet, const UnitTaker& take) const {
    if (lengthBytes > 0)
        forEachBehindLength(packet, lengthBytes, take);
    else
        forEachBehindPrefix(packet, take);
}

// ISO/IEC 14496-15, 5.3.3.1: configurationVersion, profile, compatibility and level in a byte each,
// lengthSizeMinusOne in two bits, the number of sequence sets in five, these, the number of picture
// sets in a byte, these.
NalHeader h264Header(const PacketBytes& header) {
    constexpr int version = 1;
    constexpr int sequenceSetsByte = 5;
    if (header.at(0) != version)
        return prefixedHeader(header);
    NalHeader parsed;
    parsed.lengthBytes = (header.at(4) & 3) + 1;
    const int sequenceSets = header.at(sequenceSetsByte) & 31;
    const std::int64_t end = addCounted(parsed, header, sequenceSetsByte + 1, sequenceSets);
    addCounted(parsed, header, end + 1, header.at(end));
    return parsed;
}

// ISO/IEC 14496-15, 8.3.3.1: lengthSizeMinusOne in the last two bits of byte 21, the number of
// arrays in byte 22, these: a type in a byte, the number of units in two, the units.
NalHeader hevcHeader(const PacketBytes& header) {
    constexpr int arraysByte = 22;
    // Some writers leave the version 0; a prefix looks like no such header.
    const bool isPrefixed = header.at(0) == 0 && header.at(1) == 0 && header.at(2) <= 1;
    if (isPrefixed || header.size() <= arraysByte)
        return prefixedHeader(header);
    NalHeader parsed;
    parsed.lengthBytes = (header.at(21) & 3) + 1;
    std::int64_t begin = arraysByte + 1;
    for (int i = 0; i < header.at(arraysByte) && begin < header.size(); ++i)
        begin = addCounted(parsed, header, begin + 3, header.bits((begin + 1) * 8, 16));
    return parsed;
}
