// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellscores.h"

#include "cellregion.h"
#include "restlesscells.h"

CellScores::CellScores(RegionOfInterest region, QSize pictures, const CellOptions& options,
                       CellBits restless)
    : region(std::move(region))
    , pictures(pictures)
    , options(options)
    , restless(std::move(restless)) {}

MotionScore CellScores::add(double time, const CellMap& map) {
    return add(time, cellsFrom(map, options.step));
}

MotionScore CellScores::add(double time, const CellBits& changed) {
    if (changed.grid != selected.grid)
        fit(changed.grid);
    inside = changed;
    inside.keep(selected);
    const int moving = motion.add(time, inside);
    return {whole == 0 ? 0.0F : float(100.0 * moving / whole)};
}

void CellScores::fit(CellGrid grid) {
    selected = cellsOf(region, pictures, grid);
    if (restless.grid == grid)
        selected.remove(restless);
    whole = wholeOf(selected);
}

MotionSeries seriesOf(const CellMaps& maps, const QVector<double>& times, CellScores scores) {
    MotionSeries series;
    CellMapsReader reader(maps);
    for (const double time : times) {
        const CellBits* changed = reader.next(scores.step());
        if (!changed)
            break;
        series.scores.append(scores.add(time, *changed));
        series.times.append(time);
    }
    return series;
}

CellBits restlessOf(const CellMaps& maps, const QVector<double>& times,
                    const CellOptions& options) {
    RestlessCells restless;
    CellMapsReader reader(maps);
    for (const double time : times) {
        const CellBits* changed = reader.next(options.step);
        if (!changed)
            break;
        restless.add(time, *changed);
    }
    return restless.found();
}
