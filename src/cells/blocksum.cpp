// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "blocksum.h"

#include <algorithm>
#include <cstring>
#include <endian.h>

std::uint64_t sumOf(const std::uint8_t* bytes, std::size_t size) {
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15; // odd, and its bits are everywhere
    std::uint64_t sum = size;
    for (std::size_t at = 0; at < size; at += sizeof sum) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes + at, std::min(sizeof word, size - at));
        sum = (sum ^ le64toh(word)) * factor;
        sum ^= sum >> 32;
    }
    return sum;
}
