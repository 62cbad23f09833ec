// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "nalunits.h"

namespace {

using UnitTaker = PacketBytes::PartTaker;

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
        isWanted = take(packet.part(begin, begin + length).trimmed());
        begin += length;
    }
}

/// Takes units into a header for as long as it has room.
UnitTaker into(NalHeader& header) {
    return [&header](const PacketBytes& unit) {
        if (unit.size() == 0)
            return true;
        header.isCut = header.units.size() >= mostHeaderUnits;
        if (!header.isCut)
            header.units.push_back(unit);
        return !header.isCut;
    };
}

NalHeader prefixedHeader(const PacketBytes& header) {
    NalHeader parsed;
    header.forEachBehindPrefix(into(parsed));
    return parsed;
}

/// Adds `count` units, each behind two bytes that tell its length; answers where the last one ends.
std::int64_t addCounted(NalHeader& parsed, const PacketBytes& header, std::int64_t begin,
                        int count) {
    for (int i = 0; i < count && begin < header.size() && !parsed.isCut; ++i) {
        const std::int64_t end = begin + 2 + header.bits(begin * 8, 16);
        into(parsed)(header.part(begin + 2, end).trimmed());
        begin = end;
    }
    return begin;
}

} // namespace

void forEachNalUnit(const PacketBytes& packet, int lengthBytes, const UnitTaker& take) {
    const auto takeUnit = [&take](const PacketBytes& unit) {
        return unit.size() == 0 || take(unit);
    };
    if (lengthBytes > 0)
        forEachBehindLength(packet, lengthBytes, takeUnit);
    else
        packet.forEachBehindPrefix(takeUnit);
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
