// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

/// Whether a row is left out where KESTROVA_SAMPLE=n lets every n-th row run; without it all do.
///
/// Long tests on many kinds of recordings run whole in one build, and a sample of them in others.
inline bool isLeftOut(int row) {
    const int every = qEnvironmentVariableIntValue("KESTROVA_SAMPLE");
    return every > 1 && row % every != 0;
}

/// Skips the running row, saying why, unless it is in the sample.
#define KESTROVA_SAMPLED_ROW()                                         \
    do {                                                               \
        static int row = -1;                                           \
        if (isLeftOut(++row))                                          \
            QSKIP("KESTROVA_SAMPLE leaves this row to another build"); \
    } while (false)
