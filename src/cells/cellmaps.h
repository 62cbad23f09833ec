// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"
#include "cellmap.h"

/// The maps of one recording, one for each picture after its first one, in order.
class CellMaps {
public:
    void append(const CellMap& map);

    /// Those of `others` behind these.
    void append(const CellMaps& others);

    int count() const { return int(maps.size()); }

private:
    friend class CellMapsReader;
    std::vector<CellMap> maps;
};

/// Reads maps in their order, all steps of them or the cells of one step alone, which is much
/// quicker.
class CellMapsReader {
public:
    /// `maps` must outlive this object.
    explicit CellMapsReader(const CellMaps& maps)
        : maps(maps) {}

    /// The next map; null behind the last one. Valid until the next call.
    const CellMap* next();

    /// The cells of the next map that have reached `step` (1..cellSteps.size()); null behind the
    /// last one. Valid until the next call.
    const CellBits* next(int step);

    /// Whether there was no such cell in it, without looking at it.
    bool isQuiet() const { return isEmpty; }

private:
    const CellMaps& maps;
    std::size_t at = 0;
    CellBits bits;
    bool isEmpty = true;
};
