// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "namepattern.h"

#include <QString>
#include <QVector>

/// How the names are read that fit a known pattern.
enum class NameReading {
    Local,       ///< by the clock of the camera's zone
    Utc,         ///< by that of UTC, whatever the zone
    EitherOrder, ///< its day may stand in front of its month or behind it; used if only one can be
    Unusable     ///< its day can be read in several ways; never used
};

/// A way in which cameras, recorders and phones name their recordings. In patterns, - and _ stand
/// for other separators, too (NamePattern::Separators::Any).
struct KnownName {
    NameReading reading;
    QString pattern;
    QString example; ///< all have the same time: 22 November 2026, 20:30:15
    QVector<NamePattern>
        ways; ///< the pattern; with EitherOrder also that with day and month swapped
};

/// All of them, in the order in which they are tried.
const QVector<KnownName>& knownNames();
