// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "backgroundthread.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThread>

#include <new>

namespace {

constexpr unsigned long longestEndMilliseconds = 1000;

struct GivenUp {
    QThread* thread;
    QObject* place;
};

/// Keeps what was given up reachable. Never destroyed itself.
QList<GivenUp>& givenUp() {
    static auto* list = new QList<GivenUp>;
    return *list;
}

GuiCall callerFor(const QPointer<QObject>& receiver) {
    return [receiver](const std::function<void()>& what) {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [receiver, what] {
                if (receiver)
                    what();
            },
            Qt::QueuedConnection);
    };
}

} // namespace

BackgroundThread::BackgroundThread()
    : thread(std::make_unique<QThread>())
    , place(std::make_unique<QObject>()) {
    place->moveToThread(thread.get());
}

BackgroundThread::~BackgroundThread() {
    thread->quit();
    if (!thread->wait(longestEndMilliseconds))
        givenUp().append({thread.release(), place.release()});
}

bool BackgroundThread::run(QObject* receiver, const Task& task) {
    if (!thread->isRunning())
        thread->start();
    if (!thread->isRunning())
        return false;
    const GuiCall call = callerFor(receiver);
    QMetaObject::invokeMethod(
        place.get(),
        [task, call] {
            try {
                task(call);
            } catch (const std::bad_alloc&) {
                qWarning("out of memory beside the window");
            }
        },
        Qt::QueuedConnection);
    return true;
}

bool BackgroundThread::isAnyAbandoned() {
    return !givenUp().isEmpty();
}
