// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionpyramid.h"

#include "clocktext.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::size_t fanOut = 8;

float greatestOfFirst(const std::vector<float>& values) {
    return *std::max_element(values.begin(), values.begin() + fanOut);
}

} // namespace

void MotionPyramid::add(double time, float value) {
    if (!std::isfinite(time))
        return;
    time = std::max(sensibleTime(time), 0.0);
    while (time / bucket >= mostBuckets)
        joinNeighbours();
    const auto place = std::size_t(time / bucket);
    while (levels[0].size() <= place)
        append(value);
    raise(place, value);
    newest = std::max(newest, time);
}

float MotionPyramid::strongest(double from, double to) const {
    const auto count = double(levels[0].size());
    auto begin = std::size_t(std::clamp(std::floor(from / bucket), 0.0, count));
    auto end = std::size_t(std::clamp(std::ceil(to / bucket), 0.0, count));
    float greatest = 0.0F;
    for (std::size_t level = 0; begin < end; ++level) {
        const std::vector<float>& values = levels[level];
        const bool isTop = level + 1 == levels.size();
        while (begin < end && (isTop || begin % fanOut != 0))
            greatest = std::max(greatest, values[begin++]);
        while (begin < end && end % fanOut != 0)
            greatest = std::max(greatest, values[--end]);
        begin /= fanOut;
        end /= fanOut;
    }
    return greatest;
}

float MotionPyramid::strongest() const {
    const std::vector<float>& top = levels.back();
    return top.empty() ? 0.0F : *std::max_element(top.begin(), top.end());
}

void MotionPyramid::append(float value) {
    const std::size_t place = levels[0].size();
    levels[0].push_back(value);
    raise(place, value);
}

/// Up to a level of so few that there is none above it.
void MotionPyramid::raise(std::size_t place, float value) {
    for (std::size_t level = 0;; ++level, place /= fanOut) {
        if (level == levels.size())
            levels.emplace_back(1, greatestOfFirst(levels[level - 1]));
        std::vector<float>& values = levels[level];
        if (place == values.size())
            values.push_back(value);
        values[place] = std::max(values[place], value);
        if (values.size() <= fanOut)
            return;
    }
}

void MotionPyramid::joinNeighbours() {
    const std::vector<float> before = std::exchange(levels, {{}})[0];
    bucket *= 2.0;
    for (std::size_t i = 0; i < before.size(); i += 2)
        append(std::max(before[i], before[std::min(i + 1, before.size() - 1)]));
}
