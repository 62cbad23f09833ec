// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellmaps.h"
#include "cellscores.h"

/// The values of all maps that were kept of a recording; `times` has one for each of them. Uses up
/// to `threads` threads besides the caller's; 0 = as many as the machine has cores, 1 = the
/// caller's alone. The values do not depend on them.
MotionSeries seriesOf(const CellMaps& maps, const QVector<double>& times, CellScores scores,
                      int threads = 1);

/// The same of a recording that goes on where another one ended, whose values `scores` has told:
/// `begun` has the values of its first pictures already, and those of the others are put behind
/// them. `scores` is then as far as the recording.
void addSeries(const CellMaps& maps, const QVector<double>& times, CellScores& scores, int threads,
               MotionSeries& begun);

/// The cells that change through most of a recording; empty where there are none, and of no grid
/// where it is too short to tell.
CellBits restlessOf(const CellMaps& maps, const QVector<double>& times, const CellOptions& options);
