// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "mpvlibrary.h"

#include <QSize>

class MpvHandle;

/// What the player tells of what it plays. Seconds in the library's time.
struct MpvProperties {
    enum class Change { None, Time, Length, End, Pause, Shape };

    /// Has `player` tell of all from now on.
    static void observe(MpvHandle& player);

    /// Takes over what it has told.
    Change take(const mpv_event_property& told);

    double time = 0.0; ///< of the picture that is shown
    double length = 0.0;
    bool isAtEnd = false;
    bool isPaused = true;
    QSize shape; ///< of the recording's pictures, as they are to be seen
};
