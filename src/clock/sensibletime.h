// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recordingstart.h"

#include <optional>

/// What is doubtful about `time` as one at which a recording can have been made: ClockNotSet near
/// the days at which clocks begin that were never set, UnlikelyTime before 1990 and after 2099 and
/// where it is none. Nothing if it can be one.
std::optional<StartDoubt> flawOf(const QDateTime& time);

/// Whether a recording of `time` comes from a clock that is ahead, if it is `now`: by more than a
/// year, since this machine's own clock may be behind. Never if `now` is invalid.
bool isAhead(const QDateTime& time, const QDateTime& now);
