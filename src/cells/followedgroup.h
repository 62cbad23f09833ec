// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellgroups.h"

#include <array>

/// A group of changed cells that is followed from picture to picture.
class FollowedGroup {
public:
    /// The group as it is in the picture at `time` seconds; times do not fall.
    void see(double time, const CellGroup& group);

    double lastSeen() const { return seenAt; }

    /// How much the box around it has in common with that around `group`, in cells, where both may
    /// lie a cell apart; 0 if they are farther apart.
    int overlap(const CellGroup& group) const;

    /// Whether its middle has moved along since about `alongTime` ago; false if it is younger.
    bool isMovingAlong() const;

private:
    struct Place {
        double time;
        int x; ///< of the middle, in 256ths of a cell
        int y;
    };

    void keepPlace(const Place& place);
    double pathLength() const;
    static double distance(const Place& from, const Place& to);

    CellGroup seen;
    double seenAt = 0.0;
    Place middle{}; ///< in the last picture

    // Earlier places; the first one is the newest that is at least `alongTime` old, if any is.
    std::array<Place, 8> places{};
    int placeCount = 0;
};
