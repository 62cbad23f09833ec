// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellmap.h"
#include "detectionoptions.h"
#include "measurement.h"

#include <functional>
#include <optional>
#include <vector>

/// One side of the place where a recording goes on in another one.
struct SeamSide {
    QString path;
    const Measurement& measurement;
    double shift = 0.0; ///< seconds, from its times to those of both
};

/// What has moved there, which neither of the two can tell by itself.
struct Seam {
    /// From the last picture of the one to the first of the other; nothing if the two cannot be
    /// compared.
    std::optional<MotionScore> mean;

    /// The maps of the other's first pictures, its very first among them, as if both were one
    /// recording: those that depend on pictures of the one before. Empty if they are not wanted.
    std::vector<CellMap> maps;
};

/// Decodes the end of `before` and the beginning of `next`, as `options` say, and compares them.
/// Nothing where one of them cannot be read again as it was measured. What is found depends on
/// nothing but the two files and the options.
std::optional<Seam> seamBetween(const SeamSide& before, const SeamSide& next,
                                const DetectionOptions& options,
                                const std::function<bool()>& isInterrupted);
