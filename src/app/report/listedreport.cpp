// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "listedreport.h"

#include "clip.h"
#include "cliplistwidget.h"
#include "detectionqueue.h"
#include "video.h"

#include <QHash>

#include <algorithm>

namespace {

QHash<const Video*, QVector<ListedReport::Clip>> clipsByJob(const ClipListWidget& list) {
    QHash<const Video*, QVector<ListedReport::Clip>> clips;
    for (const Clip* clip : list.clips()) {
        ListedReport::Clip listed;
        listed.reported.index = clip->index;
        listed.reported.start = clip->start;
        listed.reported.end = clip->end;
        listed.reported.snapshotTime = clip->snapshotTime;
        if (clip->status == Clip::Exported)
            listed.reported.exportFile = clip->outputPath;
        listed.picture = clip->snapshot;
        clips[clip->video].append(listed);
    }
    return clips;
}

/// Whether a later job has searched the same, and nothing of this one is listed any more.
bool isReplaced(const Video& job, const DetectionQueue& queue) {
    if (job.isSuperseded)
        return true;
    const QList<Video*>& jobs = queue.jobs();
    return std::any_of(jobs.cbegin() + jobs.indexOf(const_cast<Video*>(&job)) + 1, jobs.cend(),
                       [&job](const Video* other) {
                           return other->sharesFolder() && other->state == Video::Finished &&
                                  other->clipDirectory == job.clipDirectory;
                       });
}

ListedReport::Recording recordingOf(const Video& job, bool isOver) {
    ListedReport::Recording recording;
    recording.job = job.record();
    recording.options = job.detectionOptions();
    if (isOver) {
        recording.values = job.motionValues;
        recording.times = job.frameTimes;
    }
    return recording;
}

/// The page knows one detector: the mean, unless all that was searched was searched for cells. Null
/// where there is nothing.
const DetectionOptions* commonOptions(const std::vector<ListedReport::Recording>& recordings) {
    const ListedReport::Recording* common = recordings.empty() ? nullptr : &recordings.front();
    for (const auto& recording : recordings) {
        if (recording.job.state != Video::Finished)
            continue;
        common = &recording;
        if (recording.options.detector == Detector::Mean)
            break;
    }
    return common ? &common->options : nullptr;
}

} // namespace

ListedReport listedReport(const DetectionQueue& queue, const ClipListWidget& list,
                          const QString& folder) {
    ListedReport listed;
    listed.folder = folder;
    const auto clips = clipsByJob(list);
    for (const Video* job : queue.jobs()) {
        if (isReplaced(*job, queue) && !clips.contains(job))
            continue;
        listed.recordings.push_back(recordingOf(*job, queue.isOver(*job)));
        listed.recordings.back().clips = clips.value(job);
    }
    if (const auto* options = commonOptions(listed.recordings)) {
        listed.detector = options->detector;
        listed.threshold = double(options->segmentation.motionThreshold.value);
    }
    return listed;
}
