// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"

#include <vector>

/// For how long there was motion in each place of a picture: in one recording, or in all of a
/// camera. Places are some cells wide, so that a map takes a few kilobytes.
class MotionMap {
public:
    static constexpr int mostColumns = 40;

    /// The cells that have changed for `seconds`. Those of another grid go where they lie in the
    /// picture.
    void add(const CellBits& changed, double seconds);

    /// The same of another map.
    void add(const MotionMap& other);

    /// Of the places; without any as long as nothing was added.
    CellGrid grid() const { return places; }

    double seconds(int column, int row) const { return sums[places.placeOf(column, row)]; }
    double longest() const; ///< seconds of the place with most of them

private:
    void begin(CellGrid grid);

    CellGrid places;
    std::vector<float> sums;
};
