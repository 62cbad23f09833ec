// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "workerthread.h"

#include "video.h"

#include <QElapsedTimer>
#include <QtDebug>

#include <algorithm>
#include <functional>

namespace {

constexpr int longestWaitMilliseconds = 1000;
constexpr int waitStepMilliseconds = 20;

/// Keeps what was given up reachable. Never destroyed itself.
struct Abandoned {
    QList<WorkerThread*> threads;
    QList<Video*> jobs;
};

Abandoned& abandoned() {
    static auto* lists = new Abandoned;
    return *lists;
}

void cancel(const QList<Video*>& jobs) {
    for (Video* job : jobs) {
        if (job)
            job->state = Video::CancelRequested;
    }
}

} // namespace

void WorkerThread::stop(std::unique_ptr<WorkerThread>& thread, QList<Video*>& jobs) {
    cancel(jobs);
    thread->quit();
    if (thread->waitCancelling(jobs))
        return;
    qDebug("Processing thread wait failed");
    thread->terminate(); // asked for all the same; `run` has disabled it and says why
    const auto isUsed = [&thread](const Video* job) {
        return job && job->thread() == thread.get();
    };
    const auto used = std::stable_partition(jobs.begin(), jobs.end(), std::not_fn(isUsed));
    std::for_each(used, jobs.end(), [](Video* job) { abandoned().jobs.append(job); });
    jobs.erase(used, jobs.end());
    abandoned().threads.append(thread.release());
}

bool WorkerThread::isAnyAbandoned() {
    return !abandoned().threads.isEmpty();
}

void WorkerThread::run() {
    // Cut off anywhere, the thread could leave locks taken and lists torn that the end of the
    // program needs: a termination is only noted, and the thread ends with the program.
    setTerminationEnabled(false);
    exec();
}

/// False if the thread still runs after the longest wait.
bool WorkerThread::waitCancelling(const QList<Video*>& jobs) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < longestWaitMilliseconds) {
        if (wait(waitStepMilliseconds))
            return true;
        // A job that was just being started has overwritten the first request.
        cancel(jobs);
    }
    return false;
}
