// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "scanoptions.h"

/// What a person wants to know of the motion in a recording where no clip, or nothing but clips,
/// come of it. Takes the same memory for every length.
struct SeenMotion {
    qint64 pictures = 0; ///< that have a value
    qint64 moving = 0;   ///< those of them whose value reaches the threshold
    MotionScore strongest;
    double strongestTime = 0.0; ///< seconds from the first picture
    int clips = 0;
    double inClips = 0.0;  ///< seconds of the recording that lie in clips
    double clipsEnd = 0.0; ///< seconds from the first picture up to which clips are counted there

    void add(double time, MotionScore motion, MotionThreshold threshold); ///< of a picture
    void addClip(const DetectedClip& clip); ///< in the order of their times
};

constexpr double mostlyClips = 0.95; ///< of a recording that is motion throughout

/// Whether a recording of `seconds` is clips and nearly all of its pictures have motion.
bool isThroughout(const SeenMotion& seen, double seconds);

/// Whether there is something to be remarked of it.
bool isRemarkable(const SeenMotion& seen, double seconds);

/// How near a recording without clips was to one, or that another is motion throughout, and what
/// can be done about it; a line without a full stop. `otherwise`: what other options are known to
/// find (OtherFindings); empty: nothing is known. Empty where there is nothing to be remarked.
QString remarkOn(const SeenMotion& seen, double seconds, const ScanOptions& options,
                 const QString& otherwise);
