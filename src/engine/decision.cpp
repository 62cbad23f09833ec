// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "decision.h"

Decision::Decision(const SegmentationOptions& options, const Measurement& measurement,
                   ClipPicturePointer firstPicture, DetectionFindings& findings)
    : findings(findings)
    , segmenter(options, measurement.stream.origin, measurement.firstTime, std::move(firstPicture))
    , origin(measurement.stream.origin)
    , number(measurement.firstNumber) {
    findings.opened(measurement.stream);
}

void Decision::add(MotionScore motion, double time, ClipPicturePointer picture) {
    const auto clip = segmenter.addFrame(motion, time, std::move(picture));
    if (clip)
        findings.clipFound(*clip);
    findings.frameProcessed({++number, time - origin, motion, segmenter.earliestStart()});
}

void Decision::finish() {
    if (const auto clip = segmenter.finish())
        findings.clipFound(*clip);
}
