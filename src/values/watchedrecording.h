// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recordingstamp.h"

#include <sys/stat.h>

/// A recording that one works on, of which somebody else may make something else meanwhile.
class WatchedRecording {
public:
    /// When the recording was measured that the stamp is of.
    enum class Measured {
        Now,   ///< in this call: what is appended meanwhile takes nothing away from it
        Before ///< it must be, to the last byte and provably, what it was
    };

    enum class State { Same, Grown, Changed, Gone };

    WatchedRecording(RecordingStamp stamp, Measured measured);

    /// What it is now. Reads the samples of its digest the first time, and from then on only where
    /// the file system tells of a change, be it one of links or permissions.
    State state();

    /// Why nothing can be taken from it as what was measured, for a person; empty if that can.
    QString flaw();

private:
    State compare() const;

    RecordingStamp stamp;
    Measured measured;
    struct stat last {}; ///< what the file system said when `lastState` was found
    bool hasLast = false;
    State lastState = State::Same;
};
