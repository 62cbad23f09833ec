// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "groupfinder.h"

#include <array>
#include <limits>

/// A group of changed cells that is followed from map to map.
class FollowedGroup {
public:
    /// First seen at `time`; it, or what it was part of, has gone one way since `oneWaySince`.
    FollowedGroup(double time, double oneWaySince)
        : bornAt(time)
        , oneWayFrom(oneWaySince) {}

    /// The group as it is at `time` seconds; times do not fall.
    void see(double time, const SeenGroup& now);

    double lastSeen() const { return seenAt; }
    double oneWaySince() const { return oneWayFrom; }

    /// How much the box around it has in common with that around `group`, in cells, where both may
    /// touch; 0 if they do not.
    int overlap(const CellGroup& group) const;

    /// How many times the area of the group counts (grouprules.h); more than once only if it has a
    /// large share of all changed cells.
    int weight(bool isLargeShare) const;

private:
    struct Place {
        double time;
        int x; ///< of the middle, in 256ths of a cell
        int y;
    };

    static constexpr double never = -std::numeric_limits<double>::infinity();

    void seeWays(double time, const SeenGroup& now);
    void keepPlace(const Place& place);
    bool isMovingAlong() const;
    double pathLength() const;
    static double distance(const Place& from, const Place& to);

    CellGroup seen;
    double bornAt;
    double seenAt = 0.0;

    bool isBrighter = false; ///< for the most part
    double oneWayFrom;
    double bothWaysNear = never; ///< when it last went both ways, with what is around it
    double bothWays = never;     ///< the same for its own cells

    Place middle{}; ///< in the last map

    // Earlier places; the first one is the newest that is at least `alongTime` old, if any is.
    std::array<Place, 8> places{};
    int placeCount = 0;
};
