// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "factsteller.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int factsMilliseconds = 500;
constexpr int valuesMilliseconds = 100;

bool isReadWhole(const MeasuringEnd& end) {
    switch (end.outcome) {
    case DetectionOutcome::Finished:
        return end.error.isEmpty(); // there is more of it now
    case DetectionOutcome::Cancelled:
    case DetectionOutcome::ReadFailed:
    case DetectionOutcome::OutOfMemory:
        return false;
    default:
        return true;
    }
}

} // namespace

FactsTeller::FactsTeller(JobNews& news)
    : news(news) {
    sinceFacts.start();
    sinceValues.start();
}

void FactsTeller::open(const StreamFacts& stream) {
    facts.seconds = stream.duration;
    facts.pictures = stream.description.size;
    facts.stream = stream;
    tellFacts();
}

void FactsTeller::add(const FrameReport& frame) {
    readSeconds = frame.time;
    if (frame.motion.value > facts.strongest.value) {
        facts.strongest = frame.motion;
        facts.strongestTime = frame.time;
    }
    values.append(frame.motion.value);
    times.append(frame.time);
    if (sinceValues.hasExpired(valuesMilliseconds))
        tellValues();
    if (sinceFacts.hasExpired(factsMilliseconds))
        tellFacts();
}

void FactsTeller::end(const MeasuringEnd& end, const Damage& damage) {
    facts.error = end.error;
    facts.isReadToItsEnd = isReadWhole(end);
    if (end.outcome == DetectionOutcome::Finished)
        facts.damage = damage;
    if (end.outcome != DetectionOutcome::Cancelled && readSeconds > 0.0)
        facts.seconds = readSeconds;
    tellValues();
    tellFacts();
}

/// A header that promises less than there is, or nothing, is not believed.
void FactsTeller::tellFacts() {
    facts.seconds = std::max(facts.seconds, readSeconds);
    news.tellFacts(facts);
    sinceFacts.start();
}

void FactsTeller::tellValues() {
    if (!values.isEmpty())
        news.tellMeasured(std::exchange(values, {}), std::exchange(times, {}));
    sinceValues.start();
}
