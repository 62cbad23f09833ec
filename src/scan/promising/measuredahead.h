// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "valuesstore.h"

/// What is known of a recording before it is its turn in the output.
struct MeasuredAhead {
    double seconds = 0.0; ///< that it lasts; 0: unknown

    /// All of it was measured.
    std::optional<ValuesStore::Found> whole;

    /// Or some: of each row of parts; with `isPartly` no more of it is to be looked at.
    QVector<Measurement> runs;
    double share = 0.0; ///< of its length, 0 to 1
    bool isPartly = false;
    bool isKept = true; ///< what was to be kept of it

    bool isThere() const { return whole || !runs.isEmpty(); }

    int parts = 0; ///< whose files are not needed any more once the whole is kept
};
