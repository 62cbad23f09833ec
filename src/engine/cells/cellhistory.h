// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellpicture.h"

#include <cstdint>
#include <deque>
#include <vector>

struct TimedCells {
    double time; ///< seconds
    CellPicturePointer picture;
};

/// The sum of the pictures of a stretch of time that moves along with the newest one.
class CellWindow {
public:
    /// From `from` to `to` seconds before the newest picture; one that is `from` old is outside,
    /// one that is `to` old is inside.
    CellWindow(double from, double to)
        : from(from)
        , to(to) {}

    /// Moves on to the time of the last one of `pictures`.
    void follow(const std::deque<TimedCells>& pictures);

    /// The first of the pictures is taken away. It must lie before the stretch.
    void dropFirst();

    void clear();

    int count() const { return int(end - begin); }
    std::size_t first() const { return begin; }          ///< index of its first picture
    std::size_t behind() const { return end; }           ///< index of the first one after it
    const std::vector<int>& sum() const { return sums; } ///< of each cell, in sixteenths of a level

private:
    double from;
    double to;
    std::size_t begin = 0;
    std::size_t end = 0;
    std::vector<int> sums;
};

/// The pictures that a new one is compared with: those of three quarters of a second, and the
/// newest one before that. All are of one grid.
class CellHistory {
public:
    CellHistory();

    void clear();

    bool isEmpty() const { return pictures.empty(); }
    const TimedCells& last() const { return pictures.back(); }

    /// A later picture than all before.
    void add(double time, CellPicturePointer picture);

    /// How much lighter each cell is now than it was before, in 128ths of a level: the difference
    /// of two means, each of them rounded, halves up. False if nothing is old enough.
    bool differences(std::vector<std::int16_t>& result);

private:
    bool hasOlder() const { return older.behind() > 0; }
    void forget();

    std::deque<TimedCells> pictures;
    CellWindow newer;
    CellWindow older;
    std::vector<int> lone; ///< levels of the one picture that stands for older ones
};
