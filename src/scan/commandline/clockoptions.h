// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "findstart.h"

#include <optional>

/// What is asked about the times at which recordings began.
struct ClockOptions {
    RecordingStart given;              ///< of the first recording; unknown: none was given
    std::optional<StartSearch> search; ///< each recording's own is looked for; nothing: it is not
    bool areTold = false;              ///< clips are printed with the clock's times, too
};
