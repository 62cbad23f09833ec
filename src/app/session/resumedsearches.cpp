// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "resumedsearches.h"

#include "clip.h"
#include "cliplistwidget.h"
#include "detectionqueue.h"
#include "video.h"

#include <algorithm>
#include <cmath>

namespace {

/// Times are the same each time a recording is read.
bool isSame(double left, double right) {
    constexpr double slack = 0.001; // seconds, less than from one picture to the next
    return std::abs(left - right) < slack;
}

/// Whether the recording was searched with other options since, or will be: what that finds takes
/// the place of all that was found before.
bool isSearchedAgain(const Video& job, const QList<Video*>& jobs) {
    return std::any_of(jobs.begin() + jobs.indexOf(const_cast<Video*>(&job)) + 1, jobs.end(),
                       [&job](const Video* later) {
                           return later->sharesFolder() && !later->isSuperseded &&
                                  later->state != Video::Failed &&
                                  later->clipDirectory == job.clipDirectory;
                       });
}

Video* successorOf(Video& job) {
    JobRecord record = job.record();
    record.state = Video::Waiting;
    job.isSuperseded = true;
    return new Video(record);
}

} // namespace

ResumedSearches::ResumedSearches(QObject& window, DetectionQueue& queue, ClipListWidget& list)
    : window(window)
    , queue(queue)
    , list(list) {}

void ResumedSearches::add(const QList<Video*>& jobs, const ListedClips& listed) {
    for (Video* job : jobs) {
        connect(job, SIGNAL(newClip(int, QImage, double, double, double)), &window,
                SLOT(newClip(int, QImage, double, double, double)));
        if (job->hasEnded())
            continue;
        for (const QPointer<Clip>& clip : listed.value(job)) {
            if (!clip)
                continue;
            unfound[job].append(clip);
            job->nextClipNumber = qMax(job->nextClipNumber, clip->index + 1);
        }
        if (job->nextClipNumber > 0)
            unfound[job]; // its numbers go on also where none of its clips is listed any more
        connect(job, SIGNAL(resultReady()), SLOT(end()));
    }
    queue.add(jobs);
}

std::optional<int> ResumedSearches::numberOf(const Video& job, int index, double start,
                                             double end) {
    if (job.isSuperseded)
        return std::nullopt; // the job that stands for it finds it again
    const auto resumed = unfound.find(&job);
    if (resumed == unfound.end())
        return index;
    const auto found =
        std::find_if(resumed->begin(), resumed->end(), [start, end](const QPointer<Clip>& clip) {
            return clip && isSame(clip->start, start) && isSame(clip->end, end);
        });
    if (found == resumed->end())
        return job.nextClipNumber;
    resumed->erase(found);
    return std::nullopt;
}

void ResumedSearches::searchRest() {
    QHash<Video*, Video*> successors;
    QList<Video*> jobs;
    for (Video* job : queue.jobs()) {
        const bool isCancelled = job->state == Video::CancelRequested && !job->isSuperseded;
        if (!isCancelled || isSearchedAgain(*job, queue.jobs()))
            continue;
        jobs.append(successorOf(*job));
        successors.insert(job, jobs.last());
    }
    if (!jobs.isEmpty())
        add(jobs, clipsOf(successors));
}

/// The clips of the keys, which belong to the values from now on.
ResumedSearches::ListedClips
ResumedSearches::clipsOf(const QHash<Video*, Video*>& successors) const {
    ListedClips clips;
    const QList<Clip*> all = list.clips();
    for (Clip* clip : all) {
        Video* successor = successors.value(clip->video);
        if (!successor)
            continue;
        clip->video = successor;
        clips[successor].append(clip);
    }
    return clips;
}

void ResumedSearches::end() {
    auto* job = qobject_cast<Video*>(sender());
    const QList<QPointer<Clip>> left = unfound.take(job);
    if (!job || job->state != Video::Finished)
        return;
    QList<Clip*> gone;
    for (const QPointer<Clip>& clip : left) {
        if (clip && !clip->isExportedOrWill())
            gone.append(clip);
    }
    list.takeOut(gone);
    discarded.add(gone);
    if (!gone.isEmpty())
        Q_EMIT list.itemSelectionChanged(); // which of the window's actions are possible
}
