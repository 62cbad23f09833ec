// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keptmeasurement.h"

namespace {

KeptEnd endOf(DetectionOutcome outcome) {
    switch (outcome) {
    case DetectionOutcome::CannotOpen:
        return KeptEnd::CannotOpen;
    case DetectionOutcome::TooFewPictures:
        return KeptEnd::TooFewPictures;
    case DetectionOutcome::NoUsableTimes:
        return KeptEnd::NoUsableTimes;
    default:
        return KeptEnd::Finished;
    }
}

KeptRatio keptRatio(const Ratio& ratio) {
    return {ratio.numerator, ratio.denominator};
}

KeptStream keptStream(const StreamFacts& facts) {
    KeptStream stream;
    stream.codec = facts.codecName;
    stream.size = facts.description.size;
    stream.pixelAspect = keptRatio(facts.description.pixelAspect);
    stream.pace = keptRatio(facts.description.frameRate);
    stream.start = facts.description.startTime;
    stream.isIntraOnly = facts.isIntraOnly;
    stream.frameRate = facts.frameRate;
    stream.origin = facts.origin;
    stream.isRegionEmpty = facts.isRegionEmpty;
    return stream;
}

StreamFacts factsOf(const KeptStream& stream) {
    StreamFacts facts;
    facts.codecName = stream.codec;
    facts.description = {stream.size,
                         {stream.pixelAspect.above, stream.pixelAspect.below},
                         {stream.pace.above, stream.pace.below},
                         stream.start};
    facts.isIntraOnly = stream.isIntraOnly;
    facts.frameRate = stream.frameRate;
    facts.origin = stream.origin;
    facts.isRegionEmpty = stream.isRegionEmpty;
    return facts;
}

} // namespace

KeptValues keptValues(const RecordingStamp& recording, const MeasureSettings& settings,
                      const Measurement& measured, const MeasuringEnd& end) {
    KeptValues kept;
    kept.recording = recording;
    kept.stream = keptStream(measured.stream);
    kept.settings = settings;
    kept.end = endOf(end.outcome);
    kept.reason = end.error;
    kept.hasPictures = measured.hasPictures;
    kept.firstNumber = measured.firstNumber;
    kept.firstTime = measured.firstTime;
    kept.times = measured.series.times;
    kept.values = measured.series.values;
    if (measured.damage.isThere())
        kept.damage =
            KeptDamage{measured.damage.packets, measured.damage.promised, measured.damage.read};
    return kept;
}

KeptPart keptPart(RecordingPart part, const PartFacts& facts) {
    KeptPart kept;
    kept.index = part.index;
    kept.count = part.count;
    kept.kind = KeptPart::Kind(facts.kind);
    kept.begin = facts.begin;
    kept.end = facts.end;
    kept.delay = facts.delay;
    kept.held = facts.held;
    kept.isRegular = facts.isRegular;
    return kept;
}

Measurement measurementOf(const KeptValues& values) {
    Measurement measurement;
    measurement.stream = factsOf(values.stream);
    measurement.firstNumber = values.firstNumber;
    measurement.firstTime = values.firstTime;
    measurement.series = {values.values, values.times};
    measurement.hasPictures = values.hasPictures;
    if (values.damage)
        measurement.damage = {values.damage->packets, values.damage->promised, values.damage->read};
    return measurement;
}

DetectionOutcome outcomeOf(KeptEnd end) {
    switch (end) {
    case KeptEnd::CannotOpen:
        return DetectionOutcome::CannotOpen;
    case KeptEnd::TooFewPictures:
        return DetectionOutcome::TooFewPictures;
    case KeptEnd::NoUsableTimes:
        return DetectionOutcome::NoUsableTimes;
    case KeptEnd::Finished:
        break;
    }
    return DetectionOutcome::Finished;
}

bool canBeKept(const Measurement& measured, const MeasuringEnd& end) {
    if (measured.series.times.size() >= mostKeptPictures)
        return false;
    return end.outcome == DetectionOutcome::Finished || end.isLasting;
}
