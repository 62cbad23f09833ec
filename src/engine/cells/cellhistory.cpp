// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellhistory.h"

#include "celldefinition.h"

#include <utility>

namespace {

using cells::unit;

constexpr int highestLevel = 255 * 16;
constexpr int mostPictures = int(cells::momentsASecond * cells::longestWindow) + 2;
constexpr int unitsInLevelStep = unit / 16; // levels are in sixteenths
static_assert(255 * unit <= INT16_MAX, "differences of means fit");
static_assert(mostPictures * highestLevel * unitsInLevelStep < 1 << 22,
              "means are exact, see below");

void add(std::vector<int>& sums, const std::vector<std::uint16_t>& levels) {
    for (std::size_t i = 0; i < sums.size(); ++i)
        sums[i] += levels[i];
}

void subtract(std::vector<int>& sums, const std::vector<std::uint16_t>& levels) {
    for (std::size_t i = 0; i < sums.size(); ++i)
        sums[i] -= levels[i];
}

/// The mean of `count` levels, in units, halves rounded up. Multiplied with a reciprocal, which is
/// exact of sums below 2^22: half of the distance to the next quotient is more than what is
/// rounded.
class Mean {
public:
    explicit Mean(int count)
        : half(count / 2)
        , reciprocal(1.0F / float(count)) {}

    int operator()(int sum) const {
        const int scaled = sum * unitsInLevelStep + half;
        return int((float(scaled) + 0.5F) * reciprocal);
    }

private:
    int half;
    float reciprocal;
};

} // namespace

void CellWindow::follow(const std::deque<TimedCells>& pictures) {
    const double time = pictures.back().time;
    sums.resize(pictures.back().picture->levels.size(), 0);
    for (; end < pictures.size() && pictures[end].time <= time - to; ++end)
        add(sums, pictures[end].picture->levels);
    for (; begin < end && pictures[begin].time <= time - from; ++begin)
        subtract(sums, pictures[begin].picture->levels);
}

void CellWindow::dropFirst() {
    --begin;
    --end;
}

void CellWindow::clear() {
    begin = end = 0;
    sums.clear();
}

CellHistory::CellHistory()
    : newer(cells::newest, 0)
    , older(cells::oldest, cells::lag) {}

void CellHistory::clear() {
    pictures.clear();
    newer.clear();
    older.clear();
}

void CellHistory::add(double time, CellPicturePointer picture) {
    pictures.push_back({time, std::move(picture)});
    newer.follow(pictures);
    older.follow(pictures);
    forget();
}

/// Keeps one picture before the older ones: after a pause it may be the only one.
void CellHistory::forget() {
    while (older.first() > 1) {
        pictures.pop_front();
        newer.dropFirst();
        older.dropFirst();
    }
}

bool CellHistory::differences(std::vector<std::int16_t>& result) {
    if (!hasOlder())
        return false;
    const bool isLone = older.count() == 0;
    if (isLone) {
        const auto& levels = pictures[older.behind() - 1].picture->levels;
        lone.assign(levels.begin(), levels.end());
    }
    const std::vector<int>& before = isLone ? lone : older.sum();
    const Mean meanBefore(isLone ? 1 : older.count());
    const Mean meanNow(newer.count());
    const std::vector<int>& now = newer.sum();
    result.resize(now.size());
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] = std::int16_t(meanNow(now[i]) - meanBefore(before[i]));
    return true;
}
