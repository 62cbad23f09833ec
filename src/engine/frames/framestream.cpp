// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "framestream.h"

#include <QThread>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

// Times are sums of fractions; a person writes them with a few digits.
constexpr double tolerance = 1e-6;

bool isWhole(const FramePlan& plan) {
    return plan.range.from <= 0.0 && std::isinf(plan.range.to);
}

DecodingOptions decodingOf(const FramePlan& plan) {
    DecodingOptions options;
    options.threads = plan.threads > 0 ? plan.threads : std::max(1, QThread::idealThreadCount());
    options.isKeyframesOnly = plan.isKeyframesOnly;
    if (plan.threads != 1 && !plan.part && isWhole(plan))
        options.work = plan.work;
    return options;
}

} // namespace

FrameStream::FrameStream(QByteArray fileName, FramePlan wanted, std::function<bool()> isInterrupted)
    : fileName(std::move(fileName))
    , plan(std::move(wanted))
    , interrupt(std::move(isInterrupted))
    , clock(plan.times) {
    if (!open())
        return;
    const bool isSlow = !plan.part && plan.range.from > 0.0 && !plan.isKeyframesOnly;
    if (plan.part && findFirst())
        decoder->beginPart(*plan.part, plan.lead, first->packet);
    else if (isSlow && findFirst())
        goToRange();
}

/// From the start, also once more.
bool FrameStream::open() {
    ahead.reset();
    decoder.reset();
    file = std::make_unique<MediaFile>(fileName, interrupt);
    if (file->isOpen())
        decoder = std::make_unique<DecodingContext>(*file, decodingOf(plan));
    beginAnew();
    return isOpen();
}

void FrameStream::beginAnew() {
    clock = PictureClock(plan.times);
    second = {};
    isSkipped = false;
    isUntested = false;
    endsEarly = false;
    hasReached = false;
    hasMismatch = false;
    currentNumber = -1;
}

/// Leaves the recording open at its start. False where nothing can be skipped.
bool FrameStream::findFirst() {
    if (plan.times.frameRate > 0.0 || !file->canReopen())
        return false;
    const Frame frame = decoder->next();
    const bool isTimed = frame.isThere() && !frame.isTimeMissing;
    // Who wants a part is told why there is none.
    if (!isTimed && plan.part)
        return false;
    if (isTimed)
        first = First{frame.time, frame.packet, true};
    return open() && isTimed;
}

void FrameStream::goToRange() {
    ahead.reset();
    beginAnew();
    isSkipped = skip();
    isUntested = isSkipped;
}

/// From here or, where that is too late, from the start. False if the recording must be read from
/// its start, where it is then.
bool FrameStream::skip() {
    const bool isAtStart = file->packets().isAtStart();
    const auto stamp = stampOf(first->time + plan.range.from);
    if (stamp && decoder->skipTo(*stamp))
        return true;
    return open() && !isAtStart && skip();
}

void FrameStream::goOnTo(const TimeRange& range) {
    plan.range = range;
    const bool isTimed = first && first->isTimed && plan.times.frameRate <= 0.0;
    if (isOpen() && isTimed && file->canReopen())
        goToRange();
    else
        open();
}

bool FrameStream::goToPart(const PlacedPart& part, const PacketIndexPointer& packets, qint64 delay,
                           double firstTime) {
    ahead.reset();
    beginAnew();
    first = First{firstTime, delay, true};
    plan.range.from = -std::numeric_limits<double>::infinity(); // times may run backwards
    return decoder && decoder->goToPart(part, packets, delay);
}

Frame FrameStream::next() {
    if (second.isThere())
        return std::exchange(second, {});
    Frame frame = nextInRange();
    if (!std::exchange(isUntested, false))
        return frame;
    if (frame.isThere())
        second = nextInRange();
    const bool isRight = second.isThere() && !hasMismatch;
    if (isRight || file->packets().isInterrupted())
        return frame;
    open();
    return nextInRange();
}

Frame FrameStream::nextInRange() {
    for (;;) {
        Frame frame = nextTimed();
        if (!frame.isThere())
            return frame;
        count(frame);
        const double time = frame.time - first->time;
        if (time > plan.range.to + tolerance)
            return endBefore(std::move(frame));
        if (!hasReached && (plan.part || time >= plan.range.from - tolerance)) {
            hasReached = true;
            numberOfFirst = currentNumber;
        }
        if (hasReached)
            return frame;
    }
}

/// Behind what was skipped packets tell the number, as far as they each complete one frame.
void FrameStream::count(const Frame& frame) {
    if (!first)
        first = First{frame.time, frame.packet, !frame.isTimeMissing};
    const qint64 last = currentNumber;
    const bool isByPacket = isSkipped && !hasReached;
    currentNumber = isByPacket ? frame.packet - first->packet : last + 1;
    hasMismatch = hasMismatch || (last >= 0 && currentNumber != last + 1);
}

Frame FrameStream::nextTimed() {
    Frame frame = nextDecoded();
    if (!frame.isThere())
        return frame;
    const auto time = clock.next({frame.time, frame.isTimeMissing, frame.headerFrameRate});
    hasUselessFirst = !time;
    if (!time)
        return endBefore(std::move(frame));
    frame.time = *time;
    return frame;
}

/// What has been read ahead, or could not be, is none of the plan's affair.
Frame FrameStream::endBefore(Frame frame) {
    ahead.reset();
    endsEarly = true;
    frame.picture.reset();
    frame.chunk.reset();
    return frame;
}

/// What comes from chunks is decoded on threads of their own.
Frame FrameStream::nextDecoded() {
    if (!decoder || decoder->isInChunks())
        return decoder ? decoder->next() : Frame();
    if (!ahead)
        ahead.emplace(*decoder, plan.threads != 1);
    return ahead->next();
}

bool FrameStream::seekBefore(double time) {
    const auto stamp = stampOf(time);
    return stamp && decoder->seekBefore(*stamp);
}

/// The stream's time stamp of a time that was read from it.
std::optional<std::int64_t> FrameStream::stampOf(double time) const {
    const double stamp = time / av_q2d(file->stream()->time_base);
    constexpr double farthest = 1e18; // where a double still leads to a 64-bit number
    if (!(std::abs(stamp) < farthest))
        return std::nullopt;
    return std::llround(stamp);
}
