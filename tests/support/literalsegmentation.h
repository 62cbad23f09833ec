// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "segmentation.h"

#include <QVector>

/// One frame of a recording as the segmentation sees it; the first one's motion is not used.
struct TestFrame {
    double time = 0.0;
    float motion = 0.0F;
};

/// A clip of the literal model: the snapshot is the number of the frame that it shows.
struct LiteralClip {
    int index = 0;
    int snapshotFrame = 0;
    double start = 0.0;
    double end = 0.0;
    double snapshotTime = 0.0;
};

/// The segmentation at its slowest and plainest: every list is kept whole, every vote counts anew,
/// the history holds every picture of the last seconds.
QVector<LiteralClip> literalClips(const QVector<TestFrame>& frames,
                                  const SegmentationOptions& options);
