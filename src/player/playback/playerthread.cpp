// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playerthread.h"

#include "logging.h"

#include <QDeadlineTimer>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using Threads = std::vector<std::unique_ptr<PlayerThread>>;

/// Those that were asked to end. Never destroyed itself.
Threads& ending() {
    static auto* threads = new Threads;
    return *threads;
}

} // namespace

PlayerThread::PlayerThread()
    : player(std::make_unique<MpvPlayer>(pictures)) {
    player->moveToThread(this);
}

PlayerThread::~PlayerThread() = default;

/// What lives on the thread ends there, too: it may take a while.
void PlayerThread::run() {
    disownLibavErrors();
    exec();
    player.reset();
}

void PlayerThread::letEnd(std::unique_ptr<PlayerThread> thread) {
    thread->quit();
    waitForAll(0);
    ending().push_back(std::move(thread));
}

bool PlayerThread::waitForAll(int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    Threads& threads = ending();
    const auto hasEnded = [&deadline](const auto& thread) { return thread->wait(deadline); };
    threads.erase(std::remove_if(threads.begin(), threads.end(), hasEnded), threads.end());
    return threads.empty();
}
