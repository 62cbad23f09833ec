// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <functional>

/// The bytes of a packet, or a part of them, that may hold anything. Nothing is read outside them.
///
/// Places are counted in 64 bits: a packet can have more bits than an int counts.
class PacketBytes {
public:
    using PartTaker = std::function<bool(const PacketBytes& part)>;

    PacketBytes() = default;

    /// `data` may be null where `size` is 0.
    PacketBytes(const std::uint8_t* data, std::int64_t size)
        : first(data)
        , count(data && size > 0 ? size : 0) {}

    const std::uint8_t* data() const { return first; }
    std::int64_t size() const { return count; }

    /// The byte at `index`; 0 before the beginning and beyond the end.
    int at(std::int64_t index) const { return index >= 0 && index < count ? first[index] : 0; }

    /// The bit at `index`, the most significant bit of the first byte being 0; 0 outside as well.
    int bit(std::int64_t index) const {
        return index >= 0 ? at(index / 8) >> (7 - index % 8) & 1 : 0;
    }

    /// `length` bits, at most 24, from `index` on, as a number.
    int bits(std::int64_t index, int length) const;

    /// The unsigned Exp-Golomb number, ue(v), that begins at bit `index` (ITU-T H.264, 9.1, and
    /// H.265, 9.2); any number where there is none.
    int golomb(std::int64_t index) const;

    /// From `begin` up to `end`, both cut to what there is.
    PacketBytes part(std::int64_t begin, std::int64_t end) const;

    /// Without the zeros at its end.
    PacketBytes trimmed() const;

    /// Gives `take` what stands behind each start code prefix 00 00 01, up to the next one and
    /// without the zeros at its end, until it answers false (ISO/IEC 13818-2 and 14496-2, 6.2.1;
    /// ITU-T H.264 and H.265, B.1). Parts can be empty.
    void forEachBehindPrefix(const PartTaker& take) const;

private:
    std::int64_t behindNextPrefix(std::int64_t begin) const;

    const std::uint8_t* first = nullptr;
    std::int64_t count = 0;
};
