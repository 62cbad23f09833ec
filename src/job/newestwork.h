// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backgroundthread.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <memory>

/// Has things worked out beside the GUI thread, on which it lives, one at a time. Of what is asked
/// for meanwhile only the newest is done.
class NewestWork : public QObject {
    Q_OBJECT

public:
    /// What is to be done on the GUI thread with what was worked out.
    using Ending = std::function<void()>;

    /// Asked now and then: whether the work is in vain.
    using IsInterrupted = std::function<bool()>;

    /// Runs on the other thread, and has to own what it needs.
    using Work = std::function<Ending(const IsInterrupted&)>;

    explicit NewestWork(QObject* parent = nullptr);

    /// Interrupts what runs; the thread's end says how long that is waited for.
    ~NewestWork() override;

    void start(const Work& newWork);

    /// Interrupts what runs and forgets what waits: none of it comes to its ending.
    void cancel();

    /// Whether an ending or a failure is still to come.
    bool isBusy() const { return waiting || (running && !*running); }

Q_SIGNALS:
    /// There was no thread, or no memory, for what was asked last.
    void failed();

private:
    using Flag = std::shared_ptr<std::atomic<bool>>;

    void begin(const Work& work);
    void finish(const Ending& ending);

    BackgroundThread thread;
    Flag running; ///< null: nothing runs; true: what runs is not wanted any more
    Work waiting;
};
