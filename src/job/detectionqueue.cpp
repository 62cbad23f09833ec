// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "detectionqueue.h"

#include "video.h"

#include <QElapsedTimer>
#include <QSet>
#include <QThread>
#include <QtDebug>

#include <algorithm>
#include <functional>
#include <iterator>

namespace {

constexpr int longestWaitMilliseconds = 1000;
constexpr int waitStepMilliseconds = 20;

/// Keeps what was given up reachable. Never destroyed itself.
struct Abandoned {
    QList<QThread*> threads;
    QList<Video*> jobs;
};

Abandoned& abandoned() {
    static auto* lists = new Abandoned;
    return *lists;
}

/// Wraps: positions come out of files and can be anything.
qint64 sum(qint64 left, qint64 right) {
    return qint64(quint64(left) + quint64(right));
}

auto isIn(int state) {
    return [state](const Video* video) { return video->state == state; };
}

class WorkerThread : public QThread {
protected:
    /// Cut off anywhere, the thread could leave locks taken and lists torn that the end of the
    /// program needs: a termination is only noted, and the thread ends with the program.
    void run() override {
        setTerminationEnabled(false);
        exec();
    }
};

} // namespace

int BatchProgress::percent() const {
    return int(qint64(quint64(bytesRead) * 100U) / fileSize);
}

BatchProgress updateBatch(const QList<Video*>& videos, QList<Video*>& batch) {
    BatchProgress progress;
    const QSet<Video*> counted(batch.cbegin(), batch.cend());
    for (Video* video : videos) {
        const bool isUnfinished = !video->hasEnded();
        const bool isInBatch = counted.contains(video);
        if (!isInBatch && !isUnfinished)
            continue;
        if (!isInBatch)
            batch.append(video);
        progress.bytesRead = sum(progress.bytesRead, video->bytesRead);
        progress.fileSize = sum(progress.fileSize, video->fileSize);
        progress.isActive = progress.isActive || isUnfinished;
    }
    if (!progress.isActive)
        batch.clear();
    return progress;
}

DetectionQueue::DetectionQueue()
    : workerThread(std::make_unique<WorkerThread>()) {
    workerThread->start(QThread::InheritPriority);
}

DetectionQueue::~DetectionQueue() {
    stop();
    qDeleteAll(videos);
}

bool DetectionQueue::isActive() const {
    return std::any_of(videos.cbegin(), videos.cend(),
                       [](const Video* video) { return !video->hasEnded(); });
}

bool DetectionQueue::isOver(const Video& video) const {
    return video.hasEnded() && heldVideo != &video;
}

QList<Video*> DetectionQueue::sharersOf(const Video& video) const {
    QList<Video*> sharers;
    std::copy_if(videos.begin(), videos.end(), std::back_inserter(sharers),
                 [&video](const Video* job) { return job->clipDirectory == video.clipDirectory; });
    return sharers;
}

int DetectionQueue::takeClipNumber(Video& video) const {
    int number = video.nextClipNumber;
    const QList<Video*> sharers = sharersOf(video);
    for (const Video* job : sharers)
        number = std::max(number, job->nextClipNumber);
    video.nextClipNumber = number + 1;
    return number;
}

void DetectionQueue::add(const QList<Video*>& jobs) {
    videos.append(jobs);
    Q_EMIT added(jobs);
    startNext();
}

/// Nothing starts while the worker has not begun yet with the job that it was handed, nor while it
/// has not let go of one that was cancelled: what waited behind that could no longer be withdrawn.
void DetectionQueue::startNext() {
    if (heldVideo || std::any_of(videos.cbegin(), videos.cend(), isIn(Video::Running)))
        return;
    Video* nextVideo = next();
    if (!nextVideo || !hasWorker())
        return;
    heldVideo = nextVideo;
    heldVideo->numberOn(videos);
    heldVideo->moveToThread(workerThread.get());
    connect(heldVideo, SIGNAL(resultReady()), SLOT(letGo()));
    QMetaObject::invokeMethod(heldVideo, "detect");
}

void DetectionQueue::cancel() {
    for (Video* video : qAsConst(videos))
        cancel(*video);
}

void DetectionQueue::cancel(Video& video) {
    if (video.hasEnded())
        return;
    video.state = Video::CancelRequested;
    Q_EMIT cancelled();
}

void DetectionQueue::stop() {
    if (!workerThread || endWorker())
        return;
    qDebug("Processing thread wait failed");
    workerThread->terminate(); // asked for all the same; `run` has disabled it and says why
    abandonWorker();
}

bool DetectionQueue::isAnyAbandoned() {
    return !abandoned().threads.isEmpty();
}

BatchProgress DetectionQueue::progress() {
    return updateBatch(videos, progressVideos);
}

void DetectionQueue::letGo() {
    heldVideo = nullptr;
    startNext();
    Q_EMIT letGoOfJob();
}

Video* DetectionQueue::next() const {
    if (chooser)
        return chooser(videos);
    const auto first = std::find_if(videos.cbegin(), videos.cend(), isIn(Video::Waiting));
    return first == videos.cend() ? nullptr : *first;
}

bool DetectionQueue::hasWorker() {
    if (workerThread->isRunning())
        return true;
    workerThread->start(QThread::InheritPriority);
    const bool isRunning = workerThread->isRunning();
    Q_EMIT told(isRunning ? QString() : tr("No thread to run detection on, trying again..."));
    return isRunning;
}

/// False if the thread still runs after the longest wait.
bool DetectionQueue::endWorker() {
    QElapsedTimer timer;
    timer.start();
    workerThread->quit();
    do {
        // A job that was just being started has overwritten the first request.
        for (Video* video : qAsConst(videos))
            video->state = Video::CancelRequested;
        if (workerThread->wait(waitStepMilliseconds))
            return true;
    } while (timer.elapsed() < longestWaitMilliseconds);
    return false;
}

void DetectionQueue::abandonWorker() {
    const auto isUsed = [this](const Video* video) {
        return video->thread() == workerThread.get();
    };
    const auto used = std::stable_partition(videos.begin(), videos.end(), std::not_fn(isUsed));
    std::for_each(used, videos.end(), [](Video* video) { abandoned().jobs.append(video); });
    videos.erase(used, videos.end());
    abandoned().threads.append(workerThread.release());
}
