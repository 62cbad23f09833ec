// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellmaps.h"
#include "celloptions.h"
#include "groupmotion.h"
#include "motionseries.h"
#include "region.h"

#include <QSize>

/// The motion values of a recording's pictures, from the maps of their changed cells. The same
/// whether the maps are made at the moment or were kept.
class CellScores {
public:
    /// `pictures` is the size of the recording's first ones. Cells that are `restless` are left
    /// out of the region, where the maps have the grid of these.
    CellScores(RegionOfInterest region, QSize pictures, const CellOptions& options,
               CellBits restless = CellBits());

    /// The value of the next picture, at `time` seconds as the stream counts them: the share of
    /// the group of changed cells that counts most, in percent; what has moved along for a while
    /// counts several times (GroupMotion). 0 where nothing is selected.
    MotionScore add(double time, const CellMap& map);

    /// The same for a map that is not carried on, by its cells that have reached the step of the
    /// options, those that have reached the weaker one, and at least those of them that have become
    /// brighter.
    MotionScore add(double time, const CellBits& changed, const CellBits& nearly,
                    const CellBits& brighter);

    /// The value of the last picture, for one that carries its map on.
    MotionScore last() const { return score; }

    /// The step that cells must have reached.
    int step() const { return options.step; }

private:
    void fit(CellGrid grid);

    RegionOfInterest region;
    QSize pictures;
    CellOptions options;
    CellBits restless;

    CellBits selected;  ///< of the grid of the last map
    int whole = 0;      ///< so many cells are 100 %
    ChangedCells cells; ///< of the last map, of those that are selected
    GroupMotion motion;
    MotionScore score;
};

/// The values of all maps that were kept of a recording; `times` has one for each of them.
MotionSeries seriesOf(const CellMaps& maps, const QVector<double>& times, CellScores scores);

/// The cells that change through most of a recording; empty where there are none.
CellBits restlessOf(const CellMaps& maps, const QVector<double>& times, const CellOptions& options);
