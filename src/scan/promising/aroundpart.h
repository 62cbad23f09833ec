// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "partedrecording.h"
#include "scanoptions.h"

/// What a part that was measured tells together with those beside it.
struct AroundPart {
    /// That lie whole in what was measured, in the order of their times.
    QVector<DetectedClip> clips;

    /// Parts that are to be measured for others to be whole.
    QVector<int> wanted;
};

/// Decides on part `index`, which was measured, and as many beside it as it takes to have its clips
/// whole, within bounds: a clip of many minutes is told with the whole recording.
AroundPart decideAround(const PartedRecording& parted, int index, const ScanOptions& options);
