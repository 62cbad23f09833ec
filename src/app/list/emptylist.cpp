// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "emptylist.h"

#include "detectionqueue.h"
#include "video.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

/// What is said of an empty list, in the window's language.
class Words {
    Q_DECLARE_TR_FUNCTIONS(EmptyList)
};

bool hasFound(const Video* job) {
    return job->nextClipNumber > job->firstClipNumber;
}

} // namespace

QString emptyListText(const DetectionQueue& queue, bool isAnyHidden) {
    const QList<Video*>& jobs = queue.jobs();
    const auto isIn = [](int state) {
        return [state](const Video* job) { return job->state == state; };
    };
    if (isAnyHidden)
        return Words::tr("All clips are hidden at the moment");
    if (jobs.isEmpty())
        return {};
    if (queue.isActive())
        return Words::tr("No motion was found yet");
    if (std::any_of(jobs.begin(), jobs.end(), hasFound))
        return Words::tr("All clips were removed");
    if (std::any_of(jobs.begin(), jobs.end(), isIn(Video::CancelRequested)))
        return Words::tr("The search was cancelled before motion was found");
    if (std::all_of(jobs.begin(), jobs.end(), isIn(Video::Failed)))
        return Words::tr("Nothing of what was added could be read");
    return Words::tr("No motion was found");
}
