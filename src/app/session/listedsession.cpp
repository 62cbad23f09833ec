// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "listedsession.h"

#include "captiondelegate.h"
#include "clip.h"
#include "cliplistwidget.h"
#include "detectionqueue.h"
#include "video.h"

#include <QHash>

namespace {

SavedClip saved(const Clip& clip, int job) {
    SavedClip saved;
    saved.job = job;
    saved.index = clip.index;
    saved.start = clip.start;
    saved.end = clip.end;
    saved.snapshotTime = clip.snapshotTime;
    saved.snapshot = clip.snapshot;
    saved.status = clip.isBeingExported() ? int(Clip::Exporting) : clip.status;
    saved.outputPath = clip.outputPath;
    saved.strength = clip.strength;
    saved.joinedFile = clip.data(joinedRole).toString();
    saved.note = clip.toolTip();
    return saved;
}

/// While the end of a search has not been heard, its last clips may still be on their way: they
/// would be missing for good.
JobRecord saved(const Video& job, const DetectionQueue& queue) {
    JobRecord record = job.record();
    if (record.state > Video::CancelRequested && !queue.isOver(job))
        record.state = Video::Running;
    return record;
}

} // namespace

SavedSession listedSession(const DetectionQueue& queue, const ClipListWidget& list) {
    SavedSession session;
    QHash<const Video*, int> places;
    for (const Video* job : queue.jobs()) {
        if (job->isSuperseded)
            continue;
        places.insert(job, session.jobs.size());
        session.jobs.append(saved(*job, queue));
    }
    session.clips.reserve(list.count());
    for (int row = 0; row < list.count(); ++row) {
        const auto& clip = static_cast<const Clip&>(*list.item(row));
        const int place = places.value(clip.video, -1);
        if (place >= 0)
            session.clips.append(saved(clip, place));
    }
    return session;
}
