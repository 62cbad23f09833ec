// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sessionkeeper.h"

#include "sessionstore.h"

#include <QSemaphore>

#include <cerrno>
#include <new>
#include <utility>

namespace {

constexpr int pauseMilliseconds = 1000;
constexpr int longestPauseMilliseconds = 5000;
constexpr int longestWaitMilliseconds = 1000;

/// Also without memory for it there is an answer.
template<class Result>
Result answerOf(const std::function<Result()>& work, const Result& withoutMemory) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return withoutMemory;
    }
}

} // namespace

SessionKeeper::SessionKeeper(const QString& folder, std::function<SavedSession()> collect)
    : collect(std::move(collect))
    , store(std::make_shared<SessionStore>(folder)) {
    timer.setSingleShot(true);
    connect(&timer, SIGNAL(timeout()), SLOT(save()));
}

SessionKeeper::~SessionKeeper() {
    store->giveUp();
}

void SessionKeeper::look() {
    thread.run(this, [this, store = store](const GuiCall& callBack) {
        const auto last = answerOf<LastSession>([&] { return store->look(); }, {});
        callBack([this, last] { takeFound(last); });
    });
}

bool SessionKeeper::read() {
    isHeld = thread.run(this, [this, store = store](const GuiCall& callBack) {
        const auto session = answerOf<SavedSession>([&] { return store->read(); }, {});
        callBack([this, session] { Q_EMIT readBack(session); });
    });
    return isHeld;
}

/// What is just being written would be given up with the keeper; writing it again takes no time.
void SessionKeeper::finish() {
    if (isHeld || (!isChanged && !isSaving))
        return;
    timer.stop();
    const auto isDone = std::make_shared<QSemaphore>();
    const auto session = std::make_shared<const SavedSession>(collect());
    const bool isBegun = thread.run(this, [store = store, session, isDone](const GuiCall&) {
        answerOf<QString>([&] { return store->save(*session); }, {});
        isDone->release();
    });
    isChanged = false;
    if (isBegun)
        isDone->tryAcquire(1, longestWaitMilliseconds);
}

void SessionKeeper::change() {
    if (!isChanged)
        sinceFirstChange.start();
    isChanged = true;
    const qint64 left = longestPauseMilliseconds - sinceFirstChange.elapsed();
    if (!timer.isActive() || left > pauseMilliseconds)
        timer.start(pauseMilliseconds);
}

/// Where there is no thread, it is tried again.
void SessionKeeper::save() {
    if (isSaving || isHeld) {
        timer.start(pauseMilliseconds);
        return;
    }
    const auto session = std::make_shared<const SavedSession>(collect());
    isSaving = thread.run(this, [this, store = store, session](const GuiCall& callBack) {
        const auto failure =
            answerOf<QString>([&] { return store->save(*session); }, qt_error_string(ENOMEM));
        callBack([this, failure] { takeSaved(failure); });
    });
    isChanged = !isSaving;
    if (!isSaving)
        timer.start(pauseMilliseconds);
}

void SessionKeeper::takeFound(const LastSession& last) {
    if (last.isOthers)
        Q_EMIT told(tr("Another window of this program keeps its session; this one's is not kept"));
    isFailureTold = !last.failure.isEmpty();
    if (isFailureTold)
        Q_EMIT told(tr("The last session cannot be read; it stays as it is, and this one is not "
                       "kept: %1")
                        .arg(last.failure));
    if (!last.putAside.isEmpty())
        Q_EMIT told((last.state == IndexState::OtherVersion
                         ? tr("The last session is of another version, and was put aside: %1")
                         : tr("The last session is damaged, and was put aside: %1"))
                        .arg(last.putAside));
    if (last.recordings > 0)
        Q_EMIT found(last.recordings, last.clips);
}

void SessionKeeper::takeSaved(const QString& failure) {
    isSaving = false;
    if (!failure.isEmpty() && !isChanged) {
        isChanged = true; // for the next change, or the end, to try again
        sinceFirstChange.start();
    }
    const bool isNew = !failure.isEmpty() && !isFailureTold;
    isFailureTold = !failure.isEmpty();
    if (isNew)
        Q_EMIT told(tr("The session cannot be kept: %1").arg(failure));
}
