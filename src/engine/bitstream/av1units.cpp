// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "av1units.h"

namespace {

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

} // namespace

Av1Unit av1UnitAt(const PacketBytes& packet, std::int64_t begin) {
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
