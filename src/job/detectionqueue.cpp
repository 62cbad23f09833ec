// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "detectionqueue.h"

#include "video.h"
#include "workerthread.h"

#include <algorithm>

DetectionQueue::DetectionQueue()
    : workerThread(std::make_unique<WorkerThread>()) {
    workerThread->start(QThread::InheritPriority);
}

DetectionQueue::~DetectionQueue() {
    WorkerThread::stop(workerThread, videos);
    qDeleteAll(videos);
}

bool DetectionQueue::isActive() const {
    return std::any_of(videos.cbegin(), videos.cend(),
                       [](const Video* video) { return !video->hasEnded(); });
}

void DetectionQueue::add(const QList<Video*>& jobs) {
    videos.append(jobs);
    startNext();
}

/// Nothing starts while the worker has not begun yet with the job that it was handed, nor while it
/// has not let go of one that was cancelled: what waited behind that could no longer be withdrawn.
void DetectionQueue::startNext() {
    const auto isIn = [](int state) {
        return [state](const Video* video) { return video->state == state; };
    };
    if (heldVideo || std::any_of(videos.cbegin(), videos.cend(), isIn(Video::Running)))
        return;
    const auto next = std::find_if(videos.cbegin(), videos.cend(), isIn(Video::Waiting));
    if (next == videos.cend() || !hasWorker())
        return;
    heldVideo = *next;
    heldVideo->moveToThread(workerThread.get());
    connect(heldVideo, SIGNAL(resultReady()), SLOT(letGo()));
    QMetaObject::invokeMethod(heldVideo, "detect");
}

void DetectionQueue::cancel() {
    for (Video* video : qAsConst(videos)) {
        if (!video->hasEnded())
            video->state = Video::CancelRequested;
    }
}

BatchProgress DetectionQueue::progress() {
    return updateBatch(videos, progressVideos);
}

void DetectionQueue::letGo() {
    heldVideo = nullptr;
    startNext();
}

bool DetectionQueue::hasWorker() {
    if (workerThread->isRunning())
        return true;
    workerThread->start(QThread::InheritPriority);
    const bool isRunning = workerThread->isRunning();
    Q_EMIT told(isRunning ? QString() : tr("No thread to run detection on, trying again..."));
    return isRunning;
}
