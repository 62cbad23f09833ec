// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "video.h"

#include <QMetaObject>
#include <QThread>

/// A worker thread with a job on it, as the main window runs them.
class Worker {
public:
    explicit Worker(Video& job) {
        thread.start();
        job.moveToThread(&thread);
        QMetaObject::invokeMethod(&job, "detect", Qt::QueuedConnection);
    }
    ~Worker() {
        thread.quit();
        thread.wait();
    }

private:
    QThread thread;
};
