// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellcomparison.h"

#include <algorithm>
#include <cstdlib>

namespace {

// Seconds before the newest picture.
constexpr double now = 0.25;
constexpr double lag = 0.45;
constexpr double oldest = 0.75;

constexpr int unit = 256;        // one level
constexpr int fewestLevels = 8;  // that a cell changes by
constexpr int sigmas = 8;        // the same, of noise
constexpr int strongNoise = 410; // 1.6 levels

int sigmaOf(int medianOfAbsolute) {
    return int((std::int64_t(medianOfAbsolute) * 14826 + 5000) / 10000);
}

} // namespace

const CellMap& CellComparison::add(double time, CellPicturePointer picture) {
    const bool isNew = recent.empty() || recent.back().picture->grid != picture->grid ||
                       !(time >= recent.back().time);
    if (isNew)
        recent.clear();
    map.grid = picture->grid;
    map.steps.assign(std::size_t(map.grid.count()), 0);
    recent.push_back({time, std::move(picture)});
    forgetBefore(time - oldest);
    if (recent.size() < 2)
        return map;
    differ(time);
    int sigma = takeLightAway();
    if (sigma > strongNoise) {
        smooth();
        sigma = takeLightAway();
    }
    const int changed = std::max(fewestLevels * unit, sigmas * sigma);
    for (std::size_t i = 0; i < difference.size(); ++i) {
        const int strength = int(std::int64_t(std::abs(difference[i])) * 16 / changed);
        map.steps[i] = std::uint8_t(std::upper_bound(cellSteps.begin(), cellSteps.end(), strength) -
                                    cellSteps.begin());
    }
    return map;
}

void CellComparison::forgetBefore(double time) {
    while (recent.size() > 2 && recent[1].time <= time)
        recent.pop_front();
}

void CellComparison::differ(double time) {
    const std::size_t cells = std::size_t(map.grid.count());
    std::vector<std::int64_t> newer(cells, 0);
    std::vector<std::int64_t> older(cells, 0);
    const auto add = [cells](std::vector<std::int64_t>& sums, const CellPicture& picture) {
        for (std::size_t i = 0; i < cells; ++i)
            sums[i] += picture.levels[i];
    };
    int newerCount = 0;
    int olderCount = 0;
    const Timed* before = &recent.front();
    for (const Timed& entry : recent) {
        if (entry.time > time - now) {
            add(newer, *entry.picture);
            ++newerCount;
        }
        if (entry.time <= time - lag) {
            before = &entry;
            if (entry.time > time - oldest) {
                add(older, *entry.picture);
                ++olderCount;
            }
        }
    }
    if (olderCount == 0) {
        add(older, *before->picture);
        olderCount = 1;
    }
    difference.resize(cells);
    for (std::size_t i = 0; i < cells; ++i)
        difference[i] = int((newer[i] * olderCount - older[i] * newerCount) * 16 /
                            (std::int64_t(newerCount) * olderCount));
}

void CellComparison::smooth() {
    const std::vector<int> rough = difference;
    const auto [columns, rows] = map.grid;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            int sum = 0;
            for (int v = row - 1; v <= row + 1; ++v) {
                for (int u = column - 1; u <= column + 1; ++u)
                    sum += rough[std::size_t(std::clamp(v, 0, rows - 1) * columns +
                                             std::clamp(u, 0, columns - 1))];
            }
            difference[std::size_t(row * columns + column)] = sum / 9;
        }
    }
}

int CellComparison::medianOf(std::vector<int> numbers) const {
    const auto middle = numbers.begin() + std::ptrdiff_t(numbers.size() / 2);
    std::nth_element(numbers.begin(), middle, numbers.end());
    return *middle;
}

/// Answers the noise that is left.
int CellComparison::takeLightAway() {
    const int light = medianOf(difference);
    std::vector<int> absolute;
    for (int& value : difference) {
        value -= light;
        absolute.push_back(std::abs(value));
    }
    return sigmaOf(medianOf(absolute));
}
