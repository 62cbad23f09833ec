// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellscores.h"

#include "cellregion.h"
#include "restlesscells.h"

#include <algorithm>

namespace {

/// Which step cells have nearly changed from.
int weakerStep(int step) {
    return std::max(1, step - 1);
}

} // namespace

CellScores::CellScores(RegionOfInterest region, QSize pictures, const CellOptions& options,
                       CellBits restless)
    : region(std::move(region))
    , pictures(pictures)
    , options(options)
    , restless(std::move(restless)) {}

MotionScore CellScores::add(double time, const CellMap& map) {
    if (map.isCarried)
        return score;
    const bool hasBrighter = map.brighter.grid == map.grid;
    return add(time, cellsFrom(map, options.step), cellsFrom(map, weakerStep(options.step)),
               hasBrighter ? map.brighter : CellBits(map.grid));
}

MotionScore CellScores::add(double time, const CellBits& changed, const CellBits& nearly,
                            const CellBits& brighter) {
    if (changed.grid != selected.grid)
        fit(changed.grid);
    cells.changed = changed;
    cells.changed.keep(selected);
    if (!cells.changed.isEmpty()) {
        cells.nearly = nearly;
        cells.nearly.keep(selected);
        cells.brighter = brighter;
        cells.brighter.keep(cells.nearly);
    }
    const int moving = motion.add(time, cells);
    score.value = whole == 0 ? 0.0F : float(100.0 * moving / whole);
    return score;
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
        if (reader.isQuiet() && !reader.isCarried())
            scores.add(time, *changed, *changed, *changed);
        else if (!reader.isCarried())
            scores.add(time, *changed, reader.weaker(), reader.brighter());
        series.scores.append(scores.last());
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
        if (!reader.isCarried())
            restless.add(time, *changed);
    }
    return restless.found();
}
