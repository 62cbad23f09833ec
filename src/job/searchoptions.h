// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "celloptions.h"
#include "detector.h"
#include "segmentation.h"

#include <QRect>
#include <QVector>

#include <optional>

/// Everything that is decided on what was measured, without measuring anew.
struct DecidingOptions {
    Detector detector = Detector::Mean;
    SegmentationOptions segmentation; ///< with the threshold of that detector
    CellOptions cells;                ///< for `Detector::Cells`
    std::optional<double> joiningGap; ///< seconds (ClipMerger); nothing: clips are not joined
};

/// How a recording is searched where that is not what job setup and the settings say.
struct SearchOptions {
    std::optional<DecidingOptions> deciding; ///< nothing: as setup and settings say
    bool isQuick = false;                    ///< looks at key frames alone
    QVector<QRect> excluded; ///< pixels of its pictures; nothing is looked for there
};
