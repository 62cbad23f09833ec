// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <limits>

/// `value` without its fraction. Values that an int cannot hold give the nearest int, what is not a
/// number gives 0.
inline int truncatedToInt(double value) {
    using Limits = std::numeric_limits<int>;
    if (value >= double(Limits::max()))
        return Limits::max();
    if (value <= double(Limits::min()))
        return Limits::min();
    return value == value ? int(value) : 0; // NOLINT(misc-redundant-expression): not a number
}
