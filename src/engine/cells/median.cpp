// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "median.h"

#include <algorithm>

namespace {

constexpr std::size_t block = 1 << 15; // of which a 16-bit number can count all

int countBelow(const std::vector<std::int16_t>& numbers, std::int16_t limit) {
    int total = 0;
    for (std::size_t begin = 0; begin < numbers.size(); begin += block) {
        const std::size_t end = std::min(begin + block, numbers.size());
        std::uint16_t count = 0;
        for (std::size_t i = begin; i < end; ++i)
            count = std::uint16_t(count + (numbers[i] < limit));
        total += count;
    }
    return total;
}

} // namespace

int medianOf(const std::vector<std::int16_t>& numbers) {
    const int rank = int(numbers.size() / 2);
    int median = INT16_MIN;
    for (int bit = 1 << 15; bit > 0; bit /= 2) {
        if (countBelow(numbers, std::int16_t(median + bit)) <= rank)
            median += bit;
    }
    return median;
}
