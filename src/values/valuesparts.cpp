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
    return first.part->kind == KeptPart::Kind::Whole || first.end != KeptEnd::Finished;
}

bool isEmptyRest(const KeptValues& part) {
    return !part.hasPictures && part.part->kind != KeptPart::Kind::Whole;
}

/// Whether `next` goes on where `part` ends.
bool isNext(const KeptPart& part, const KeptPart& next) {
    return next.kind == KeptPart::Kind::Cut && next.isRegular && next.begin == part.end &&
           next.delay == part.delay;
}

double lastTime(const KeptValues& values) {
    return values.times.isEmpty() ? values.firstTime : values.times.last();
}

/// Appends a part's own pictures: those behind its first, which is the last one of `whole`.
bool append(const KeptValues& part, KeptValues& whole) {
    if (!part.hasPictures)
        return true;
    const qint64 last = whole.firstNumber + whole.times.size();
    if (part.firstNumber != last || part.firstTime != lastTime(whole) ||
        part.stream.origin != whole.stream.origin || part.stream.frameRate != 0.0 ||
        part.part->held > part.values.size())
        return false;
    QVector<float> values = part.values;
    const float before = whole.values.isEmpty() ? 0.0F : whole.values.last();
    std::fill_n(values.begin(), part.part->held, before);
    whole.times += part.times;
    whole.values += values;
    return true;
}

bool isStandingStill(const KeptValues& values) {
    return std::all_of(values.times.cbegin(), values.times.cend(),
                       [&values](double time) { return time == values.firstTime; });
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
    const KeptPart* last = &*parts.first().part;
    if (!last->isRegular || last->begin != 0 || !whole.hasPictures)
        return refuse("its stream is not regular enough to be measured in parts");
    for (int i = 1; i < parts.size(); ++i) {
        const KeptPart* next = &*parts[i].part;
        if (parts[i].end != KeptEnd::Finished || !isNext(*last, *next) || !append(parts[i], whole))
            return refuse("its parts do not fit each other");
        last = next;
    }
    // What one pass says of recordings with a single picture or time is left to one pass.
    const qint64 pictures = whole.times.size() + 1;
    if (pictures < 2 || isStandingStill(whole) || pictures != last->end - last->delay)
        return refuse("its stream is not regular enough to be measured in parts");
    return {whole, {}};
}
