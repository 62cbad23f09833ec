// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QObject>

#include <functional>
#include <memory>

class QThread;
class Video;

/// How far a batch of jobs has come, in bytes.
struct BatchProgress {
    qint64 bytesRead = 0;
    qint64 fileSize = 0;
    bool isActive = false; ///< a job waits or runs

    /// The share read in percent, truncated; `fileSize` must be greater than 0.
    int percent() const;
};

/// Adds up `batch`, the jobs of `videos` that were waiting or running since it was last empty.
///
/// Jobs that wait or run join it; jobs that end stay in it, so that the share never falls, until
/// all have ended: the batch is then emptied.
BatchProgress updateBatch(const QList<Video*>& videos, QList<Video*>& batch);

/// The jobs that were accepted. They run one after the other, in their order unless somebody
/// chooses among those that wait, on one worker thread.
///
/// A job stays in the queue, whatever becomes of it, and lives as long as the queue. GUI thread
/// only.
class DetectionQueue : public QObject {
    Q_OBJECT

public:
    DetectionQueue();

    ~DetectionQueue() override;

    const QList<Video*>& jobs() const { return videos; }

    /// Whether a job waits or runs.
    bool isActive() const;

    /// Whether the job has ended and the worker has let go of it: its lists are the GUI thread's.
    bool isOver(const Video& video) const;

    /// Whether the worker has the job in hand. Also one that has ended may announce clips then.
    bool isHeld(const Video& video) const { return heldVideo == &video; }

    /// The jobs that write into the same clip folder, itself among them.
    QList<Video*> sharersOf(const Video& video) const;

    /// For a new clip of the job: a number that no clip in its folder has or had.
    int takeClipNumber(Video& video) const;

    /// Owns these jobs from now on. Who wants their clips connects to them before.
    void add(const QList<Video*>& jobs);

    /// Says which of the jobs comes next, of which none runs: one that waits; null if none does.
    using Chooser = std::function<Video*(const QList<Video*>& jobs)>;

    /// Has it asked from now on; empty: the first that waits comes next.
    void setChooser(const Chooser& asked) { chooser = asked; }

    /// Starts the next job that waits, unless one runs. Where the system had no thread to give
    /// before, it is asked once more.
    void startNext();

    /// Withdraws all jobs that wait, and asks the one that runs to end.
    void cancel();

    /// The same for one of them.
    void cancel(Video& video);

    /// Cancels all jobs, ends the worker thread and waits for it, one second at the most. The end
    /// of the queue does so, too.
    ///
    /// A thread that does not end in time, as on a disk that does not answer, is given up, with the
    /// jobs that live on it. Neither is ever freed, since they may still be in use.
    void stop();

    /// Whether a thread was given up.
    static bool isAnyAbandoned();

    /// Of the jobs that have waited or run since there was last none; see `updateBatch`.
    BatchProgress progress();

Q_SIGNALS:
    /// These jobs are in the queue from now on, as its last ones.
    void added(const QList<Video*>& jobs);

    /// Some job was withdrawn or asked to end.
    void cancelled();

    /// The worker has let go of the job that it had, which is over.
    void letGoOfJob();

    /// Why no job can be started; empty as soon as one can.
    void told(const QString& notice);

private Q_SLOTS:
    void letGo();

private:
    Video* next() const;
    bool hasWorker();
    bool endWorker();
    void abandonWorker();

    QList<Video*> videos; ///< in the order of acceptance; owned
    Chooser chooser;
    QList<Video*> progressVideos;          ///< the jobs that count in `progress`
    std::unique_ptr<QThread> workerThread; ///< null once it is given up
    Video* heldVideo = nullptr;            ///< by the worker: handed over, its end not yet heard
};
