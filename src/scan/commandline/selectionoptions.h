// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>

/// In the order of the words that --sort takes.
enum class ClipOrder { Strength, Length, Time };

/// Which of the clips found count, and in which order they are told. In this order: clips are cut,
/// short ones left out, the rest sorted, and the first of them taken. None of it but cutting
/// changes the number of a clip.
struct SelectionOptions {
    std::optional<double> longest;  ///< seconds at which clips are cut; empty: none is
    double shortest = 0.0;          ///< seconds; shorter clips are left out
    std::optional<ClipOrder> order; ///< of the clips of all recordings; empty: as they are found

    /// Only so many of all recordings' clips count, the first ones of the order, or the strongest
    /// where there is none; empty: all.
    std::optional<int> most;

    /// Whether nothing can be told before all recordings are searched.
    bool isOfAll() const { return order || most; }

    /// Whether something may change at all.
    bool isThere() const { return isOfAll() || longest || shortest > 0.0; }
};
