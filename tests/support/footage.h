// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The folder of the recordings that are shipped with the tests.
QString recordingsDirectory();

/// The folder of larger, real recordings that KESTROVA_FOOTAGE names; empty if it names none.
QString footageDirectory();

/// Skips the running test, saying why, if the folder of a recording is not there (empty).
#define KESTROVA_REQUIRE_FOLDER(folder)                                             \
    do {                                                                            \
        if ((folder).isEmpty())                                                     \
            QSKIP("KESTROVA_FOOTAGE names no folder with larger, real recordings"); \
    } while (false)

/// Skips the running test, saying why, where there are no real recordings.
#define KESTROVA_REQUIRE_FOOTAGE() KESTROVA_REQUIRE_FOLDER(footageDirectory())
