// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellsfile.h"
#include "keptvalues.h"
#include "measuringend.h"

/// A values file and the maps of cells beside it.

/// Whether measuring the recording anew gives the same again.
bool canBeKept(const Measurement& measured, const MeasuringEnd& end);

/// The maps beside the values file at `path`, which holds `values` and ends with `digest`.
CellsReading readMapsBeside(const QString& path, const KeptValues& values,
                            const QByteArray& digest);

/// Why a pair could not be written, for a person; empty where it was.
struct PairFailure {
    QString values; ///< then the maps are not there, either
    QString maps;
};

/// Writes both as `writeKeptFile` does, values to `path`; values without maps alone. The maps come
/// first: those that lie beside values of another digest are nobody's.
PairFailure writePair(const KeptValues& values, const QString& path);
