// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"
#include "region.h"

#include <QRect>
#include <QSize>
#include <QVector>

/// The cells of `grid` in which motion is looked for: those of whose pixels at least half are
/// selected, or, if there is none, those of whose pixels any is.
///
/// `pictures` is the size of the recording's first pictures, to which the region is fitted. Maps
/// know no size of pictures: the region of one with another grid is fitted to all of that.
CellBits cellsOf(const RegionOfInterest& region, QSize pictures, CellGrid grid);

/// So many cells are 100 %: those of the picture, but at most four times the region's, so that a
/// quarter of the picture counts as the picture, and smaller regions are more sensitive.
int wholeOf(const CellBits& region);

/// The boxes around the groups of `cells` in pixels of pictures of a size.
QVector<QRect> boxesOf(const CellBits& cells, QSize pictures);
