// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "packetbytes.h"

#include <algorithm>
#include <cstring>

int PacketBytes::bits(std::int64_t index, int length) const {
    int number = 0;
    for (int i = 0; i < length; ++i)
        number = number << 1 | bit(index + i);
    return number;
}

int PacketBytes::golomb(std::int64_t index) const {
    // Longer numbers stand nowhere where one is asked for.
    constexpr int mostZeros = 20;
    int zeros = 0;
    while (zeros < mostZeros && bit(index + zeros) == 0)
        ++zeros;
    return bits(index + zeros, zeros + 1) - 1;
}

PacketBytes PacketBytes::part(std::int64_t begin, std::int64_t end) const {
    begin = std::clamp<std::int64_t>(begin, 0, count);
    end = std::clamp(end, begin, count);
    return {first + begin, end - begin};
}

PacketBytes PacketBytes::trimmed() const {
    std::int64_t end = count;
    while (end > 0 && first[end - 1] == 0)
        --end;
    return {first, end};
}

void PacketBytes::forEachBehindPrefix(const PartTaker& take) const {
    std::int64_t begin = behindNextPrefix(0);
    bool isWanted = true;
    while (isWanted && begin < count) {
        const std::int64_t next = behindNextPrefix(begin);
        // The next prefix is no part of it.
        isWanted = take(part(begin, next < count ? next - 3 : next).trimmed());
        begin = next;
    }
}

/// The index of the byte behind the next prefix from `begin` on; `count` where there is none with a
/// byte behind it.
std::int64_t PacketBytes::behindNextPrefix(std::int64_t begin) const {
    std::int64_t at = begin + 2;
    while (at + 1 < count) {
        const void* found = std::memchr(first + at, 1, std::size_t(count - at));
        if (!found)
            return count;
        at = static_cast<const std::uint8_t*>(found) - first + 1;
        if (at < count && first[at - 2] == 0 && first[at - 3] == 0)
            return at;
    }
    return count;
}
