// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "celloptions.h"
#include "detector.h"
#include "measureoptions.h"
#include "pictureclock.h"
#include "segmentation.h"
#include "timerange.h"

/// Everything that a detection can be told. The defaults are the program's.
struct DetectionOptions {
    MeasureOptions measure;
    SegmentationOptions segmentation;
    Detector detector = Detector::Mean;
    CellOptions cells;        ///< for `Detector::Cells`
    bool areMapsKept = false; ///< has the maps of changed cells measured, whatever decides
    TimeOptions times;
    TimeRange range;
    bool isKeyframesOnly = false;   ///< looks at key frames alone
    bool areSnapshotsWanted = true; ///< false: clips come without; decoding them again can cost
    int threads = 0; ///< that decode; 0 = as many as the machine has cores, 1 = the caller's alone
};
