// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stretchorder.h"

#include <algorithm>

namespace {

/// Containers can take a picture for a key frame that is none.
bool standsAlone(const AVFrame& picture) {
    return picture.pict_type == AV_PICTURE_TYPE_I || picture.pict_type == AV_PICTURE_TYPE_NONE;
}

} // namespace

std::optional<std::vector<qint64>> StretchOrder::add(Stretch& stretch) {
    if (stretch.isInDoubt)
        return std::nullopt;
    if (stretch.index == 0 && !stretch.results.empty()) {
        delay = stretch.delay;
        offset = stretch.results.front().fed;
    }
    if (!isRegular(stretch))
        return std::nullopt;
    const std::vector<qint64> numbers = numbersOf(stretch);
    compareFirst(stretch);
    pictures += qint64(numbers.size());
    if (stretch.last)
        last = std::move(stretch.last);
    return numbers;
}

bool StretchOrder::isRegular(const Stretch& stretch) const {
    if (stretch.results.empty()) // too short an end for a picture to come out
        return stretch.isLast && stretch.index > 0 && delay > 0 &&
               stretch.expectedPictures() <= delay;
    const bool isShared = stretch.leading > 0 || !stretch.tail.empty();
    if (stretch.delay != delay || offset < delay || (delay == 0 && isShared))
        return false;
    if (stretch.index > 0) {
        const AVFrame& first = *stretch.first->frame;
        if (!areAlike(*last->frame, first) || (delay == 0 && !standsAlone(first)))
            return false;
    }
    return hasAllPictures(stretch);
}

bool StretchOrder::hasAllPictures(const Stretch& stretch) const {
    const auto& results = stretch.results;
    if (delay == 0)
        return std::all_of(results.begin(), results.end(),
                           [](const StretchResult& result) { return result.fed >= 0; });
    const int late = stretch.index == 0 ? offset : delay;
    const int lost = stretch.isLast ? late : late - delay;
    if (int(results.size()) != std::max(0, stretch.expectedPictures() - lost))
        return false;
    for (std::size_t i = 0; i < results.size(); ++i) {
        if (results[i].fed >= 0 && results[i].fed != int(i) + late)
            return false;
    }
    return true;
}

std::vector<qint64> StretchOrder::numbersOf(const Stretch& stretch) const {
    std::vector<qint64> numbers;
    numbers.reserve(stretch.results.size());
    const qint64 first = stretch.packets.front().number;
    for (const StretchResult& result : stretch.results) {
        const qint64 place = pictures + qint64(numbers.size());
        numbers.push_back(delay == 0 ? first + result.fed : place + offset);
    }
    return numbers;
}

void StretchOrder::compareFirst(Stretch& stretch) {
    if (stretch.first && last) {
        std::optional<float>& value = stretch.results.front().value;
        value = compare(*last, *stretch.first);
        if (keeper)
            keeper->takeFirst(pictures, *last, *stretch.first, value, stretch.kept);
    }
    stretch.first.reset();
}
