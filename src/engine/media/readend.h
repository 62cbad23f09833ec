// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Why nothing more is read from a file.
struct ReadEnd {
    enum class Cause {
        EndOfFile,  ///< also of one that is cut off or damaged there, and after an interrupt
        ReadError,  ///< of the disk, or of whatever else the file lies on
        OutOfMemory ///< the next packet or picture found no room
    };

    Cause cause = Cause::EndOfFile;
    QString error; ///< for a person; empty at the end of the file
};
