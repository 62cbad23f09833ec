// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "decision.h"

namespace {

void announce(const StreamFacts& stream, DetectionClient& client) {
    client.described(stream.description, stream.origin);
    if (stream.frameRate > 0.0)
        client.numbered(stream.frameRate);
    client.opened(stream.codecName, stream.duration);
    if (stream.isRegionEmpty)
        client.regionIsEmpty();
}

} // namespace

Decision::Decision(const SegmentationOptions& options, const Measurement& measurement,
                   ClipPicturePointer firstPicture, DetectionClient& client)
    : client(client)
    , segmenter(options, measurement.stream.origin, measurement.firstTime, std::move(firstPicture))
    , origin(measurement.stream.origin)
    , number(measurement.firstNumber) {
    announce(measurement.stream, client);
}

void Decision::add(MotionScore motion, double time, ClipPicturePointer picture) {
    const auto clip = segmenter.addFrame(motion, time, std::move(picture));
    if (clip)
        client.clipFound(*clip);
    client.frameProcessed({++number, time - origin, motion, segmenter.earliestStart()});
}

void Decision::finish() {
    if (const auto clip = segmenter.finish())
        client.clipFound(*clip);
}
