// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "joborder.h"

#include "video.h"

#include <algorithm>

namespace {

bool isWaiting(const Video* job) {
    return job->state == Video::Waiting;
}

/// The first that waits of those of which nothing is known; null: there is none whose turn it is.
Video* dueOf(const QList<Video*>& jobs, const JobPromises& promises) {
    const auto isUnknown = [&](const Video* job) {
        return isWaiting(job) && !promises.contains(job);
    };
    const auto first = std::find_if(jobs.cbegin(), jobs.cend(), isUnknown);
    if (first == jobs.cend())
        return nullptr;
    const auto begun = jobs.size() - std::count_if(jobs.cbegin(), jobs.cend(), isWaiting);
    const auto isKnown = [&](const Video* job) { return isWaiting(job) && promises.contains(job); };
    const bool isOnlyKind = std::none_of(jobs.cbegin(), jobs.cend(), isKnown);
    return isOnlyKind || begun >= first - jobs.cbegin() ? *first : nullptr;
}

} // namespace

Video* likeliestOf(const QList<Video*>& jobs, const JobPromises& promises) {
    if (Video* due = dueOf(jobs, promises))
        return due;
    // The order is that of all of them, since it takes turns, and must not begin anew each time.
    QList<Video*> known;
    QVector<PartPromise> all;
    for (Video* job : jobs) {
        if (!promises.contains(job))
            continue;
        known.append(job);
        all.append(promises[job]);
    }
    const QVector<int> order = promisingOrder(all);
    const auto next = std::find_if(order.cbegin(), order.cend(),
                                   [&](int place) { return isWaiting(known[place]); });
    return next == order.cend() ? nullptr : known[*next];
}
