// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellcomparison.h"

#include "celldefinition.h"
#include "median.h"
#include "neighbourmean.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace {

using cells::unit;

// Absolute differences take 17 bits with a sign; less this they take 16, as those of light do.
constexpr int offset = 1 << 15;
static_assert(2 * 255 * unit < 2 * offset);

constexpr double latestTime = 1e12; // seconds; beyond, times no longer tell pictures apart

bool isTime(double time) {
    return std::abs(time) < latestTime;
}

double momentOf(double time) {
    return std::floor(time * cells::momentsASecond + 0.5);
}

double mapOf(double time) {
    return std::floor(momentOf(time) / cells::momentsOfAMap);
}

bool isStrong(int medianOfAbsolute) {
    return std::int64_t(medianOfAbsolute) * cells::sigmaOfMedian >
           std::int64_t(cells::strongNoise) * unit;
}

/// From what difference on a cell has changed.
int leastChange(int sigmas, int medianOfAbsolute) {
    const std::int64_t noise = std::int64_t(sigmas) * medianOfAbsolute * cells::sigmaOfMedian;
    return std::max(cells::fewestLevels * unit, int((noise + 5000) / 10000));
}

} // namespace

const CellMap& CellComparison::add(double time, CellPicturePointer picture) {
    map.isCarried = follows(time, *picture) && mapOf(time) == mapOf(last);
    if (!follows(time, *picture))
        beginAnew(picture->grid);
    if (isTime(time))
        remember(time, std::move(picture));
    if (!map.isCarried && history.differences(difference))
        judge();
    return map;
}

bool CellComparison::follows(double time, const CellPicture& picture) const {
    return isTime(time) && !history.isEmpty() && time >= last &&
           picture.grid == history.last().picture->grid;
}

void CellComparison::beginAnew(CellGrid grid) {
    history.clear();
    map = CellMap(grid);
}

void CellComparison::remember(double time, CellPicturePointer picture) {
    if (history.isEmpty() || momentOf(time) != momentOf(last))
        history.add(time, std::move(picture));
    last = time;
}

void CellComparison::judge() {
    Level found = level();
    int sigmas = cells::sigmas;
    if (isStrong(found.noise)) {
        const int before = found.noise;
        rough.swap(difference);
        averageNeighbours(rough, map.grid, difference);
        found = level();
        if (before >= cells::whiteFactor * found.noise)
            sigmas = cells::whiteSigmas;
    }
    takeSteps(leastChange(sigmas, found.noise));
    takeBrighter(found.light);
}

CellComparison::Level CellComparison::level() {
    const int light = medianOf(difference);
    absolute.resize(difference.size());
    for (std::size_t i = 0; i < absolute.size(); ++i)
        absolute[i] = std::int16_t(std::abs(difference[i] - light) - offset);
    return {light, medianOf(absolute) + offset};
}

void CellComparison::takeSteps(int changed) {
    std::array<std::int16_t, cellSteps.size()> least;
    for (std::size_t i = 0; i < least.size(); ++i)
        least[i] =
            std::int16_t(std::min((changed * cellSteps[i] + 15) / 16, 2 * offset - 1) - offset);
    for (std::size_t i = 0; i < absolute.size(); ++i) {
        int step = 0;
        for (const std::int16_t limit : least)
            step += absolute[i] >= limit;
        map.steps[i] = std::uint8_t(step);
    }
}

void CellComparison::takeBrighter(int light) {
    map.brighter = CellBits(map.grid);
    for (int row = 0; row < map.grid.rows; ++row) {
        for (int column = 0; column < map.grid.columns; ++column) {
            const std::size_t cell = map.grid.placeOf(column, row);
            if (map.steps[cell] > 0 && difference[cell] > light)
                map.brighter.add(column, row);
        }
    }
}
