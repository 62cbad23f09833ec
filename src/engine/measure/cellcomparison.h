// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellmap.h"
#include "cellpicture.h"

#include <deque>
#include <vector>

/// Compares each picture of a recording with those of the last second, cell by cell.
///
/// The mean of each cell over the last quarter of a second is compared with its mean between 0.75
/// and 0.45 s ago, so that slow things show and noise averages out. The median of the differences
/// is taken away: it is light. Noise is told from the same picture, as 1.4826 times the median of
/// the absolute differences; where it is strong the differences are smoothed over 3 x 3 cells and
/// judged anew. Integers alone: the same on every machine.
class CellComparison {
public:
    /// The map of the next picture, at `time` seconds as the stream counts them. The first picture,
    /// one of another size and one whose time lies before the last one's begin anew: nothing has
    /// changed in their maps. Valid until the next call.
    const CellMap& add(double time, CellPicturePointer picture);

    /// The map of the last picture, for one that is not looked at.
    const CellMap& last() const { return map; }

private:
    struct Timed {
        double time;
        CellPicturePointer picture;
    };

    void forgetBefore(double time);
    void differ(double time);
    void smooth();
    int medianOf(std::vector<int> numbers) const;
    int takeLightAway();

    std::deque<Timed> recent;
    std::vector<int> difference; ///< of each cell, in 256ths of a level
    CellMap map;
};
