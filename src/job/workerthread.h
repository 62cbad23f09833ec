// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QThread>

#include <memory>

class Video;

/// The one thread on which detection runs. It runs a plain event loop.
class WorkerThread : public QThread {
public:
    /// Cancels `jobs`, ends the event loop and waits for the thread, one second at the most.
    ///
    /// A thread that does not end in time, as on a disk that does not answer, is given up: `thread`
    /// becomes null, and the jobs that live on it are taken out of `jobs`. Neither is ever freed,
    /// since they may still be in use.
    static void stop(std::unique_ptr<WorkerThread>& thread, QList<Video*>& jobs);

    /// Whether a thread was given up.
    static bool isAnyAbandoned();

protected:
    void run() override;

private:
    bool waitCancelling(const QList<Video*>& jobs);
};
