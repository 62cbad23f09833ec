// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "partpromise.h"

#include <QString>

#include <functional>

/// What the packets of a recording promise of its pieces, without any of them being decoded.
struct PieceOutlook {
    int pieces = 1;                ///< of equal bytes, as the parts of so many are
    QVector<PartPromise> promises; ///< of each piece; empty: nothing can be told
};

/// Reads the packets of the file at `fileName` once. Its pieces last `longest` seconds at most, as
/// far as the headers tell how long it is, or are 9999. A piece promises what the most promising of
/// the stretches of ten seconds does that lie in it, be it in part: recordings of whatever length,
/// and their pieces, can be compared with each other.
///
/// Whatever it holds, there is an answer. `isInterrupted` is as for `MediaFile`; what was read by
/// then counts.
PieceOutlook lookAtPieces(const QString& fileName, double longest,
                          const std::function<bool()>& isInterrupted);
