// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "continuedorder.h"

#include "filenaming.h"

#include <QHash>

#include <algorithm>

namespace {

using Places = std::vector<std::size_t>;

/// Those that are named alike, in the order of the call.
QHash<QString, Places> placesByNaming(const std::vector<Recording>& recordings) {
    QHash<QString, Places> places;
    for (std::size_t i = 0; i < recordings.size(); ++i)
        places[namingOf(recordings[i].path)].push_back(i);
    return places;
}

bool isOfOneLength(const Places& places, const std::vector<Recording>& recordings) {
    const QString& first = recordings[places.front()].path;
    return std::none_of(places.begin(), places.end(), [&](std::size_t place) {
        return areNumbersOfOtherLengths(first, recordings[place].path);
    });
}

} // namespace

std::vector<std::size_t> continuedOrder(const std::vector<Recording>& recordings) {
    std::vector<std::size_t> order(recordings.size());
    for (const Places& places : placesByNaming(recordings)) {
        Places sorted = places;
        if (!isOfOneLength(places, recordings))
            std::stable_sort(
                sorted.begin(), sorted.end(), [&](std::size_t left, std::size_t right) {
                    return isNumberedBefore(recordings[left].path, recordings[right].path);
                });
        for (std::size_t i = 0; i < places.size(); ++i)
            order[places[i]] = sorted[i];
    }
    return order;
}
