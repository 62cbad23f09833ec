// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "followedgroup.h"

#include "grouprules.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int unit = 256; // one cell

int common(int begin, int end, int otherBegin, int otherEnd) {
    return std::max(0, std::min(end, otherEnd) - std::max(begin, otherBegin) + 2);
}

} // namespace

static_assert(alongTime / placeEvery + 2 < 8, "all places have room");

void FollowedGroup::see(double time, const SeenGroup& now) {
    seeWays(time, now);
    seen = now.group;
    seenAt = time;
    middle = {time, int(std::int64_t(seen.columns) * unit / seen.area),
              int(std::int64_t(seen.rows) * unit / seen.area)};
    keepPlace(middle);
}

void FollowedGroup::seeWays(double time, const SeenGroup& now) {
    const int brighter = now.group.marked;
    const int darker = now.group.area - brighter;
    const bool isFirst = placeCount == 0;
    const bool isTurned = !isFirst && isBrighter != (brighter >= darker);
    isBrighter = brighter >= darker;
    if (now.hasPartner || isBothWays(now.brighterNear, now.darkerNear))
        bothWaysNear = time;
    if (isBothWays(brighter, darker))
        bothWays = time;
    if (isTurned || bothWaysNear == time)
        oneWayFrom = time;
}

int FollowedGroup::overlap(const CellGroup& group) const {
    return common(seen.left, seen.right, group.left, group.right) *
           common(seen.top, seen.bottom, group.top, group.bottom);
}

int FollowedGroup::weight(bool isLargeShare) const {
    if (isMovingAlong() && seenAt - bothWaysNear <= lately)
        return isLargeShare ? alongWeight : 1;
    if (seenAt - oneWayFrom > oneWayTime)
        return 0;
    const bool isAtWork = seenAt - bornAt >= stayingAge && seenAt - bothWays <= lately;
    return isLargeShare && isAtWork ? stayingWeight : 1;
}

void FollowedGroup::keepPlace(const Place& place) {
    if (placeCount == 0 || place.time - places[std::size_t(placeCount - 1)].time >= placeEvery)
        places[std::size_t(placeCount++)] = place;
    int old = 0;
    while (old + 1 < placeCount && places[std::size_t(old) + 1].time <= place.time - alongTime)
        ++old;
    std::copy(places.begin() + old, places.begin() + placeCount, places.begin());
    placeCount -= old;
}

bool FollowedGroup::isMovingAlong() const {
    if (placeCount == 0 || places[0].time > seenAt - alongTime)
        return false;
    const double straight = distance(places[0], middle);
    return straight >= alongCells * unit && straightOf * straight >= straightPath * pathLength();
}

double FollowedGroup::pathLength() const {
    double length = distance(places[std::size_t(placeCount - 1)], middle);
    for (int i = 1; i < placeCount; ++i)
        length += distance(places[std::size_t(i - 1)], places[std::size_t(i)]);
    return length;
}

/// Its square is an integer, and a root is rounded rightly: the same on every machine.
double FollowedGroup::distance(const Place& from, const Place& to) {
    const std::int64_t x = to.x - from.x;
    const std::int64_t y = to.y - from.y;
    return std::sqrt(double(x * x + y * y));
}
