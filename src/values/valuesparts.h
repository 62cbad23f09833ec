// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "keptvalues.h"

/// The parts of one recording as the values of the whole.
struct JoinedParts {
    std::optional<KeptValues> values; ///< as if the whole had been measured; nothing: see `flaw`
    QString flaw;                     ///< why they cannot be joined, for a person
};

/// Joins all parts of a recording, in their order, which were measured with the same settings.
///
/// What can be joined is exactly what one pass gives. Where the stream is not regular, so that what
/// a part holds may depend on what lies before it, nothing is joined. There are maps of cells where
/// all parts have them.
JoinedParts joinParts(const QVector<KeptValues>& parts);

/// What was measured of consecutive parts of a recording, wherever the first begins; nothing where
/// they do not go on in each other. At least one.
std::optional<Measurement> joinRun(const QVector<KeptValues>& parts);
