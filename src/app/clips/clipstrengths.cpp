// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipstrengths.h"

#include "clip.h"
#include "cliplistwidget.h"
#include "detectionqueue.h"
#include "video.h"

#include <algorithm>

namespace {

/// The value of the picture that is the clip's snapshot.
float strengthOf(const Clip& clip, const Video& job) {
    const double time = clip.snapshotTime + job.news.facts().stream.origin;
    const auto at = std::lower_bound(job.frameTimes.begin(), job.frameTimes.end(), time);
    const int place = int(at - job.frameTimes.begin());
    return place < job.motionValues.size() ? job.motionValues[place] : clip.strength;
}

} // namespace

ClipStrengths::ClipStrengths(DetectionQueue& queue, ClipListWidget& list)
    : list(list) {
    connect(&queue, SIGNAL(added(QList<Video*>)), SLOT(watch(QList<Video*>)));
}

void ClipStrengths::watch(const QList<Video*>& jobs) {
    for (Video* job : jobs)
        connect(job, SIGNAL(resultReady()), this, SLOT(tell()));
}

void ClipStrengths::tell() {
    const auto* job = qobject_cast<Video*>(sender());
    for (Clip* clip : list.clips()) {
        if (job && clip->video == job)
            clip->strength = strengthOf(*clip, *job);
    }
}
