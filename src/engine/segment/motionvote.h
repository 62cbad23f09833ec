// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "motionseries.h"

/// Whether motion fills at least half of the last seconds.
///
/// The newest entry is not counted: it only serves as the reference time. Counted are the entries
/// before it, going back, for as long as time + window > reference time. The vote is won when at
/// least half of them reach the threshold (a tie wins).
///
/// The cost of a frame does not depend on the window: the counted entries are a run whose ends only
/// move forward, except where times go backwards, where the run is counted anew.
class MotionVote {
public:
    /// `window` in seconds. The owner of `series` appends one entry to it before every call of
    /// `advance`; it must outlive the vote.
    ///
    /// The window is widened where it holds fewer than `fewestCounted` entries.
    MotionVote(const MotionSeries& series, double window, MotionThreshold threshold,
               int fewestCounted = 0);

    /// Takes in the newest entry of the series.
    void advance();

    /// How many of the oldest entries do not count any more, as long as times do not run backwards.
    /// They must be taken from the series before anything else is asked.
    int forgetOld();

    /// The vote over the series as it stands.
    bool isWon() const;

private:
    bool isCounted(int entry) const;
    bool isHit(int entry) const;
    void recount();

    const MotionSeries& series;
    double window;
    MotionThreshold threshold;
    int fewestCounted;
    int first = 0;    ///< the oldest entry counted
    int hits = 0;     ///< of the entries first .. size - 2
    int backStep = 0; ///< the newest entry whose time lies before its predecessor's
};
