// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <limits>

/// The part of a recording that is looked at, in seconds from its first picture, both ends
/// included. All of it by default.
struct TimeRange {
    double from = 0.0;
    double to = std::numeric_limits<double>::infinity();
};
