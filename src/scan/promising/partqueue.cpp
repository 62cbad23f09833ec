// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partqueue.h"

#include <utility>

void PartQueue::add(int parts, const QVector<PartPromise>& ofParts) {
    const int recording = int(areLeft.size());
    areLeft.emplace_back(std::size_t(parts), 1);
    leftCount += parts;
    std::vector<PartPlace>& places = ofParts.isEmpty() ? others : promising;
    for (int part = 0; part < parts; ++part)
        places.push_back({recording, part});
    promises += ofParts;
}

void PartQueue::arrange() {
    for (const int place : promisingOrder(promises))
        queue.push_back(promising[std::size_t(place)]);
    queue.insert(queue.end(), others.begin(), others.end());
}

std::optional<PartPlace> PartQueue::next() {
    for (std::deque<PartPlace>* places : {&preferred, &queue}) {
        while (!places->empty()) {
            const PartPlace place = places->front();
            places->pop_front();
            if (takeOut(place))
                return place;
        }
    }
    return std::nullopt;
}

void PartQueue::prefer(const PartPlace& place) {
    preferred.push_back(place);
}

void PartQueue::remove(const PartPlace& place) {
    takeOut(place);
}

void PartQueue::removeAll(int recording) {
    const int parts = int(areLeft[std::size_t(recording)].size());
    for (int part = 0; part < parts; ++part)
        takeOut({recording, part});
}

/// False if it was taken out before.
bool PartQueue::takeOut(const PartPlace& place) {
    char& isLeft = areLeft[std::size_t(place.recording)][std::size_t(place.part)];
    leftCount -= isLeft;
    return std::exchange(isLeft, 0) != 0;
}
