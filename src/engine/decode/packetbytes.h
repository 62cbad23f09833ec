// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>

/// The bytes of a packet, or a part of them, that may hold anything. Nothing is read beyond them.
class PacketBytes {
public:
    PacketBytes() = default;

    /// `data` may be null where `size` is 0.
    PacketBytes(const std::uint8_t* data, int size)
        : first(data)
        , count(data && size > 0 ? size : 0) {}

    const std::uint8_t* data() const { return first; }
    int size() const { return count; }

    /// The byte at `index`, 0 or more; 0 beyond the end.
    int at(int index) const { return index < count ? first[index] : 0; }

    /// The bit at `index`, the most significant bit of the first byte being 0.
    int bit(int index) const { return at(index / 8) >> (7 - index % 8) & 1; }

    /// `length` bits, at most 24, from `index` on, as a number.
    int bits(int index, int length) const;

    /// The unsigned Exp-Golomb number that begins at bit `index`; any number where there is none.
    int golomb(int index) const;

    /// From `begin` up to `end`, both cut to what there is.
    PacketBytes part(int begin, int end) const;
    PacketBytes from(int begin) const { return part(begin, count); }

    /// Without the zeros at its end.
    PacketBytes trimmed() const;

    /// The index of the byte behind the next prefix 00 00 01 from `begin` on; `size` where there is
    /// none with a byte behind it.
    int behindNextPrefix(int begin) const;

private:
    const std::uint8_t* first = nullptr;
    int count = 0;
};
