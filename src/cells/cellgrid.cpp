// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellgrid.h"

#include <algorithm>

CellGrid cellGridOf(int width, int height) {
    if (width < 1 || height < 1)
        return {};
    const int columns = std::min(width, mostCellColumns);
    const std::int64_t rows =
        (2 * std::int64_t(columns) * height + width) / (2 * std::int64_t(width));
    const std::int64_t most = std::min<std::int64_t>(height, mostCellRows);
    return {columns, int(std::clamp<std::int64_t>(rows, 1, most))};
}
