// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "valuesparts.h"

#include <algorithm>

namespace {

JoinedParts refuse(const char* flaw) {
    return {std::nullopt, QString::fromLatin1(flaw)};
}

bool areOfOne(const QVector<KeptValues>& parts) {
    const KeptValues& first = parts.first();
    for (int i = 0; i < parts.size(); ++i) {
        const KeptValues& part = parts[i];
        if (!part.part || part.part->index != i + 1 || part.part->count != parts.size() ||
            !(part.recording == first.recording) || part.settings != first.settings)
            return false;
    }
    return true;
}

/// The first part says it all: the recording could not be cut, or not even be read.
bool isWhole(const KeptValues& first) {
    return first.partFacts.kind == PartFacts::Kind::Whole ||
           first.outcome != DetectionOutcome::Finished;
}

bool isEmptyRest(const KeptValues& part) {
    return !part.measurement.hasPictures && part.partFacts.kind != PartFacts::Kind::Whole;
}

/// Whether `next` goes on where `part` ends.
bool isNext(const PartFacts& part, const PartFacts& next) {
    return next.kind == PartFacts::Kind::Cut && next.isRegular && next.begin == part.end &&
           next.delay == part.delay;
}

double lastTime(const Measurement& measurement) {
    const QVector<double>& times = measurement.series.times;
    return times.isEmpty() ? measurement.firstTime : times.last();
}

/// Appends those of a part's own pictures; the first `held` have the map of the one before, which
/// is without changes where that is the recording's first.
void append(const CellMaps& part, int held, CellMaps& whole) {
    if (held == 0)
        return whole.append(part);
    CellMap last = whole.last();
    CellMapsReader reader(part);
    int place = 0;
    while (const CellMap* map = reader.next()) {
        if (place == 0 && whole.count() == 0)
            last = CellMap(map->grid);
        last.isCarried = true;
        whole.append(place++ < held ? last : *map);
    }
}

bool haveMaps(const KeptValues& part) {
    return part.measurement.maps.count() == part.measurement.series.times.size();
}

/// Appends a part's own pictures: those behind its first, which is the last one of `whole`. The
/// first `held` have the score of that one.
bool append(const Measurement& part, int held, Measurement& whole) {
    if (!part.hasPictures)
        return true;
    const qint64 last = whole.firstNumber + whole.series.times.size();
    if (part.firstNumber != last || part.firstTime != lastTime(whole) ||
        part.stream.origin != whole.stream.origin || part.stream.frameRate != 0.0 ||
        held > part.series.scores.size())
        return false;
    QVector<MotionScore> own = part.series.scores;
    QVector<MotionScore>& scores = whole.series.scores;
    std::fill_n(own.begin(), held, scores.isEmpty() ? MotionScore() : scores.last());
    scores += own;
    whole.series.times += part.series.times;
    append(part.maps, held, whole.maps);
    return true;
}

bool isStandingStill(const Measurement& measurement) {
    const QVector<double>& times = measurement.series.times;
    return std::all_of(times.cbegin(), times.cend(),
                       [&measurement](double time) { return time == measurement.firstTime; });
}

} // namespace

JoinedParts joinParts(const QVector<KeptValues>& parts) {
    if (parts.isEmpty() || !areOfOne(parts))
        return refuse("its parts are not those of one recording");
    KeptValues whole = parts.first();
    whole.part.reset();
    if (isWhole(parts.first())) {
        const bool isAll = std::all_of(parts.cbegin() + 1, parts.cend(), isEmptyRest);
        return isAll ? JoinedParts{whole, {}} : refuse("its parts do not fit each other");
    }
    const PartFacts* last = &parts.first().partFacts;
    if (!last->isRegular || last->begin != 0 || !whole.measurement.hasPictures)
        return refuse("its stream is not regular enough to be measured in parts");
    for (int i = 1; i < parts.size(); ++i) {
        const PartFacts* next = &parts[i].partFacts;
        if (parts[i].outcome != DetectionOutcome::Finished || !isNext(*last, *next) ||
            !append(parts[i].measurement, next->held, whole.measurement))
            return refuse("its parts do not fit each other");
        last = next;
    }
    // What one pass says of recordings with a single picture or time is left to one pass.
    const qint64 pictures = whole.measurement.series.times.size() + 1;
    if (pictures < 2 || isStandingStill(whole.measurement) || pictures != last->end - last->delay)
        return refuse("its stream is not regular enough to be measured in parts");
    if (!std::all_of(parts.cbegin(), parts.cend(), haveMaps))
        whole.measurement.maps = {};
    return {whole, {}};
}

std::optional<Measurement> joinRun(const QVector<KeptValues>& parts) {
    Measurement run = parts.first().measurement;
    const PartFacts* last = &parts.first().partFacts;
    for (int i = 1; i < parts.size(); ++i) {
        const PartFacts* next = &parts[i].partFacts;
        if (!isNext(*last, *next) || !append(parts[i].measurement, next->held, run))
            return std::nullopt;
        last = next;
    }
    return run;
}
