// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellmaps.h"

#include <QByteArray>
#include <QString>

/// The maps of changed cells of one recording, or of a part of one, as a file beside its values.
/// docs/formats.md has its bytes.

/// What maps must be of to be taken for those of a values file.
struct CellsOrigin {
    int definition = 0;      ///< the number of the definition of maps
    QByteArray valuesDigest; ///< of the values file's text (digestIn)
    int count = 0;           ///< one for each value
};

/// What was found in the place of a file with maps.
struct CellsReading {
    enum class State { Missing, Flawed, Good };

    State state = State::Missing;
    QString flaw;  ///< with Flawed: what is wrong, for a person
    CellMaps maps; ///< with Good
};

/// Writes maps to `path` as `writeKeptFile` does.
QString writeCells(const CellMaps& maps, const CellsOrigin& origin, const QString& path);

/// Reads them. Whatever lies at `path` is an answer: a file that is not, from its first byte to its
/// last, as it was written, or of another origin, is Flawed. Never waits, and takes no more memory
/// than so many maps can.
CellsReading readCells(const QString& path, const CellsOrigin& origin);
