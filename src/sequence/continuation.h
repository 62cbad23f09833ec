// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "sequencefile.h"

/// Whether a recording goes on in another one.
struct Continuation {
    enum class Sign {
        None,   ///< it does not
        Stamps, ///< the time stamps of the one go on in those of the other
        Clocks  ///< the one begins when the other ends
    };

    Sign sign = Sign::None;
    double gap =
        0.0;        ///< by their clocks: seconds from the end of the one to the start of the other
    QString reason; ///< of either answer, for a person: "its time stamps go on"

    bool isThere() const { return sign != Sign::None; }
};

/// Whether `before` goes on in `next`, in whose start at most `tolerance` seconds lie between the
/// two or are in both.
///
/// They lie in one folder or are named alike, and have one codec and size. When they were taken is
/// known from their clocks, or from time stamps that go on, as in files that were cut out of one
/// recording and kept theirs. Clocks that are sure win over stamps, which can agree by chance.
/// Numbers in names alone prove nothing.
Continuation continuationOf(const SequenceFile& before, const SequenceFile& next, double tolerance);
