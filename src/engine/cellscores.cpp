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
    if (map.grid != selected.grid)
        fit(map.grid);
    CellBits changed = cellsFrom(map, options.step);
    changed.keep(selected);
    const int moving = motion.add(time, changed);
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
        const CellMap* map = reader.next();
        if (!map)
            break;
        series.scores.append(scores.add(time, *map));
        series.times.append(time);
    }
    return series;
}

CellBits restlessOf(const CellMaps& maps, const QVector<double>& times,
                    const CellOptions& options) {
    RestlessCells restless;
    CellMapsReader reader(maps);
    for (const double time : times) {
        const CellMap* map = reader.next();
        if (!map)
            break;
        restless.add(time, cellsFrom(*map, options.step));
    }
    return restless.found();
}
