// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellsmeasurement.h"

#include "cellregion.h"
#include "cellseries.h"

namespace {

bool selectsNothing(const RegionOfInterest& region, QSize pictures) {
    const CellGrid grid = cellGridOf(pictures.width(), pictures.height());
    return grid.count() > 0 && cellsOf(region, pictures, grid).isEmpty();
}

} // namespace

Measurement cellsMeasurement(const Measurement& measured, const DetectionOptions& options,
                             const CellBits& restless) {
    const QSize pictures = measured.stream.description.size;
    const RegionOfInterest& region = options.measure.region;
    Measurement decided;
    decided.stream = measured.stream;
    decided.stream.isRegionEmpty = selectsNothing(region, pictures);
    decided.firstNumber = measured.firstNumber;
    decided.firstTime = measured.firstTime;
    decided.series =
        seriesOf(measured.maps, measured.series.times,
                 CellScores(region, pictures, options.cells, restless), options.threads);
    decided.hasPictures = measured.hasPictures;
    decided.damage = measured.damage;
    return decided;
}

CellBits restlessOf(const Measurement& measured, const DetectionOptions& options) {
    if (!options.cells.isRestlessIgnored)
        return CellBits();
    return restlessOf(measured.maps, measured.series.times, options.cells);
}
