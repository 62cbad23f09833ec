// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "newestwork.h"

#include <new>
#include <utility>

namespace {

/// Empty where there was no memory for it.
NewestWork::Ending endingOf(const NewestWork::Work& work,
                            const NewestWork::IsInterrupted& isInterrupted) {
    try {
        return work(isInterrupted);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

} // namespace

NewestWork::NewestWork(QObject* parent)
    : QObject(parent) {}

NewestWork::~NewestWork() {
    cancel();
}

void NewestWork::start(const Work& newWork) {
    if (running)
        waiting = newWork;
    else
        begin(newWork);
}

void NewestWork::cancel() {
    waiting = nullptr;
    if (running)
        *running = true;
}

void NewestWork::begin(const Work& work) {
    running = std::make_shared<std::atomic<bool>>(false);
    const auto task = [this, work, flag = running](const GuiCall& callBack) {
        const Ending ending = endingOf(work, [flag] { return flag->load(); });
        callBack([this, ending] { finish(ending); });
    };
    if (thread.run(this, task))
        return;
    running.reset();
    QMetaObject::invokeMethod(this, "failed", Qt::QueuedConnection);
}

void NewestWork::finish(const Ending& ending) {
    const bool isWanted = !*std::exchange(running, nullptr);
    if (const Work next = std::exchange(waiting, nullptr))
        begin(next);
    if (!isWanted)
        return;
    if (ending)
        ending();
    else
        Q_EMIT failed();
}
