#pragma once

#include <QString>

/// The folder of real recordings that KESTROVA_FOOTAGE names; empty if it names none.
QString footageDirectory();

/// Skips the running test, saying why, where there are no real recordings.
#define KESTROVA_REQUIRE_FOOTAGE()                                          \
    do {                                                                    \
        if (footageDirectory().isEmpty())                                   \
            QSKIP("KESTROVA_FOOTAGE names no folder with real recordings"); \
    } while (false)
