// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellhistory.h"
#include "cellmap.h"
#include "cellpicture.h"

#include <cstdint>
#include <vector>

/// A map depends on no picture that lies more than this before its own, in seconds, but for the
/// last one of them.
constexpr double cellHistory = 1.0;

/// Compares each picture of a recording with those of the last second, cell by cell.
///
/// The mean of each cell over the last quarter of a second is compared with its mean between 0.75
/// and 0.45 s ago, so that slow things show and noise averages out. Where there is no picture of
/// that time, the newest one before it serves; without one nothing has changed. The median of the
/// differences is taken away: it is light. Noise is told from the same picture, as 1.4826 times the
/// median of the absolute differences; where it is strong the differences are averaged over 3 x 3
/// cells, those at the border being continued outwards, and judged anew. Where that takes half of
/// the noise away, or more, it is white, and a change need not exceed what is left of it as much.
///
/// Integers alone, the same on every machine: means and averages are rounded to 128ths of a level,
/// halves up, and what counts as changed to the same, halves up. Steps are reached exactly.
class CellComparison {
public:
    /// The map of the next picture, at `time` seconds as the stream counts them. Valid until the
    /// next call.
    ///
    /// The first picture, one of another size, one whose time lies before the last one's and one
    /// without a time (not a number, or beyond 10^12 s) begin anew: nothing has changed in their
    /// maps. Of the pictures whose times, rounded to 8 ms, lie in the same 80 ms, all enter the
    /// means and the first alone has a map made; the others carry that on. Of those whose times,
    /// rounded so, are the same, the first alone enters the means: at most 100 pictures are kept.
    const CellMap& add(double time, CellPicturePointer picture);

private:
    struct Level {
        int light; ///< median of the differences
        int noise; ///< median of the absolute differences from that
    };

    bool follows(double time, const CellPicture& picture) const;
    void beginAnew(CellGrid grid);
    void remember(double time, CellPicturePointer picture);
    void judge();
    Level level();
    void takeSteps(int changed);
    void takeBrighter(int light);

    CellHistory history;
    std::vector<std::int16_t> difference; ///< of each cell, in 128ths of a level
    std::vector<std::int16_t> absolute;   ///< from the median, less 2^15
    std::vector<std::int16_t> rough;      ///< before they are averaged
    double last = 0.0;                    ///< time
    CellMap map;
};
