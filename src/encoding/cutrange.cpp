// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cutrange.h"

#include <limits>

// Written so that what is not a number fails every comparison.
bool canBeCut(double start, double end) {
    constexpr double limit = std::numeric_limits<int>::max();
    return end > start && end > 0.0 && end < limit && end - start < limit;
}
