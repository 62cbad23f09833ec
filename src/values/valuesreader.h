// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "keptvalues.h"

#include <optional>

/// What was found in the place of a values file.
struct ValuesReading {
    enum class State { Missing, Flawed, Good };

    State state = State::Missing;
    QString flaw;      ///< with Flawed: what is wrong, for a person
    KeptValues values; ///< with Good
    QByteArray digest; ///< with Good: the one in its last line
};

/// Reads the values file at `path`. Whatever lies there is an answer: a file that is not, from its
/// first byte to its last, as it was written is Flawed. Never waits, and takes no more memory than
/// the pictures that it lists.
ValuesReading readValues(const QString& path);

/// The recording (its absolute path) that the values file at `path` says it is of, from its first
/// lines alone. Nothing if it is no values file; an empty path where it says none.
std::optional<QByteArray> recordingNamedIn(const QString& path);
