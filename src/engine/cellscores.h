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
    /// the largest group of changed cells, in percent. 0 where nothing is selected.
    MotionScore add(double time, const CellMap& map);

    /// The same for the cells of the picture's map that have reached the step of the options.
    MotionScore add(double time, const CellBits& changed);

    /// The step that cells must have reached.
    int step() const { return options.step; }

private:
    void fit(CellGrid grid);

    RegionOfInterest region;
    QSize pictures;
    CellOptions options;
    CellBits restless;

    CellBits inside;   ///< those that have changed in the last picture
    CellBits selected; ///< of the grid of the last map
    int whole = 0;     ///< so many cells are 100 %
    GroupMotion motion;
};

/// The values of all maps that were kept of a recording; `times` has one for each of them.
MotionSeries seriesOf(const CellMaps& maps, const QVector<double>& times, CellScores scores);

/// The cells that change through most of a recording; empty where there are none.
CellBits restlessOf(const CellMaps& maps, const QVector<double>& times, const CellOptions& options);
