// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partedrecording.h"

#include <numeric>
#include <utility>

PartedRecording::PartedRecording(Recording& recording, ScoutedRecording scouted)
    : recording(recording)
    , scouted(std::move(scouted))
    , parts(std::size_t(this->scouted.parts.size()))
    , watched(*recording.stamp, WatchedRecording::Measured::Now) {}

bool PartedRecording::take(int index, const KeptValues& values) {
    const PlacedPart& place = scouted.parts[index];
    const PartFacts& facts = values.partFacts;
    const bool isThis = facts.kind == PartFacts::Kind::Cut && facts.begin == place.begin &&
                        facts.end == place.end && facts.delay == scouted.delay;
    if (!isThis || !facts.isRegular || values.outcome != DetectionOutcome::Finished)
        return false;
    measuredCount += isMeasured(index) ? 0 : 1;
    measuredSeconds += isMeasured(index) ? 0.0 : scouted.partSeconds[index];
    parts[std::size_t(index)].emplace(values);
    return true;
}

double PartedRecording::share() const {
    const QVector<double>& all = scouted.partSeconds;
    const double length = std::accumulate(all.cbegin(), all.cend(), 0.0);
    return isWhole() || length <= 0.0 ? 1.0 : measuredSeconds / length;
}

std::optional<Measurement> PartedRecording::run(int first, int last) const {
    QVector<KeptValues> values;
    for (int i = first; i <= last; ++i)
        values.append(*parts[std::size_t(i)]);
    return joinRun(values);
}

QVector<Measurement> PartedRecording::runs() const {
    QVector<Measurement> all;
    for (int first = 0; first < count(); ++first) {
        if (!isMeasured(first))
            continue;
        int last = first;
        while (last + 1 < count() && isMeasured(last + 1))
            ++last;
        if (const auto measured = run(first, last))
            all.append(*measured);
        first = last;
    }
    return all;
}

JoinedParts PartedRecording::whole() const {
    QVector<KeptValues> values;
    for (const std::optional<KeptValues>& part : parts)
        values.append(*part);
    return joinParts(values);
}

bool PartedRecording::isUnchanged() {
    return watched.state() == WatchedRecording::State::Same;
}
