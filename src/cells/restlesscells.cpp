// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "restlesscells.h"

void RestlessCells::add(double time, const CellBits& changed) {
    static_cast<void>(time);
    if (cells.grid != changed.grid)
        cells = CellBits(changed.grid);
}

CellBits RestlessCells::found() const {
    return cells;
}
