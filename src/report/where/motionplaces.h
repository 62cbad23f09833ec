// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellmaps.h"
#include "motionmap.h"

#include <QRectF>
#include <QVector>

#include <functional>

/// What the maps of a recording say of where motion was.
struct MotionPlaces {
    MotionMap map;
    QVector<QRectF> boxes; ///< for each picture that is asked for (MotionBox)
};

/// How maps are looked at.
struct PlaceSearch {
    double firstTime = 0.0; ///< of the picture before the first map, in seconds
    QVector<double> times;  ///< of the maps, ascending
    int step = changedStep;
    /// The cells of a grid in which motion is looked for.
    std::function<CellBits(CellGrid)> region;
};

/// `pictures`: the times of those whose box is asked for, in any order. What is compared counts for
/// the picture before and the one behind; one without a map within a second has an empty box.
MotionPlaces motionPlaces(const CellMaps& maps, const PlaceSearch& search,
                          const QVector<double>& pictures);
