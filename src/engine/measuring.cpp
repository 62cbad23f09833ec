// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "measuring.h"

#include "chunkpictures.h"

#include <new>
#include <utility>

namespace {

/// Where chunks end, the last picture of them is decoded again to compare the next one with.
MotionScore motionOf(MotionMeasure& measure, const FramePair& pair) {
    const Frame& current = pair.current;
    if (current.chunk)
        return measure.take(current.motion, current.width, current.height);
    if (pair.previous.picture)
        return measure.measure(*pair.previous.picture, *current.picture);
    const FramePointer again = decodeAgain(pair.previous);
    if (!again)
        throw std::bad_alloc();
    return measure.measure(*again, *current.picture);
}

MeasuringEnd endOf(const ReadEnd& end) {
    if (end.cause == ReadEnd::Cause::OutOfMemory)
        return {DetectionOutcome::OutOfMemory, end.error};
    if (end.cause == ReadEnd::Cause::ReadError)
        return {DetectionOutcome::ReadFailed,
                QStringLiteral("cannot be read to its end: %1").arg(end.error)};
    return {};
}

/// How it ends if `newest` is the last frame that is read.
MeasuringEnd endAt(const Frame& newest, const FrameStream& frames, DetectionProgress& progress) {
    if (newest.isThere() || progress.isCancelled())
        return {DetectionOutcome::Cancelled};
    return endOf(frames.end());
}

} // namespace

MotionSink sinkOf(Measurement& measured) {
    return [&measured](const FrameMotion& motion, const Frame& frame) {
        measured.series.scores.append(motion.mean);
        measured.series.times.append(frame.time);
        if (motion.map)
            measured.maps.append(*motion.map);
    };
}

MeasuringEnd measure(FramePair pair, FrameStream& frames, Measures measures,
                     DetectionProgress& progress, const MotionSink& sink) {
    MeasuringEnd end = endAt(pair.current, frames, progress);
    while (pair.current.isThere() && !progress.isCancelled()) {
        FrameMotion motion{motionOf(measures.mean, pair)};
        if (measures.cells)
            motion.map = &measures.cells->add(pair.current);
        sink(motion, pair.current);
        pair.previous = std::move(pair.current);
        pair.current = frames.next();
        end = endAt(pair.current, frames, progress);
        const bool isAtEnd = end.outcome == DetectionOutcome::Finished ||
                             end.outcome == DetectionOutcome::ReadFailed;
        progress.positionChanged(pair.current.bytePosition, isAtEnd);
    }
    return end;
}

bool selectsNothing(const RegionOfInterest& region, const Frame& frame) {
    return frame.width > 0 && frame.height > 0 &&
           prepareRegion(region, frame.width, frame.height).isEmpty();
}
