// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <functional>
#include <memory>

class QThread;

/// Has something done on the GUI thread, soon. May be called on any thread, also when nobody is
/// there any more to whom it matters: it is not done then.
using GuiCall = std::function<void(const std::function<void()>& what)>;

/// A thread for what would keep the windows waiting: does what it is given, one after the other.
/// Belongs to the GUI thread.
class BackgroundThread {
public:
    BackgroundThread();

    /// Waits for the task in hand, one second at the most. A thread that does not end by then, as
    /// on a disk that does not answer, is given up with its tasks and never freed.
    ~BackgroundThread();
    BackgroundThread(const BackgroundThread&) = delete;
    BackgroundThread& operator=(const BackgroundThread&) = delete;

    /// What a task needs it has to own, since it may outlive whoever asked for it. It answers by
    /// calling back, which reaches no `receiver` that is gone. A task that throws for want of
    /// memory ends with that.
    using Task = std::function<void(const GuiCall& callBack)>;

    /// False, and nothing is done, if the system has no thread to give.
    bool run(QObject* receiver, const Task& task);

    /// Whether a thread was given up.
    static bool isAnyAbandoned();

private:
    std::unique_ptr<QThread> thread;
    std::unique_ptr<QObject> place; ///< lives on the thread
};
