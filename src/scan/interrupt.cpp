// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "interrupt.h"

#include <atomic>
#include <csignal>
#include <cstdint>
#include <ctime>

namespace {

constexpr std::int64_t repeatMilliseconds = 2000;

/// When the first signal came, in milliseconds of the monotonic clock; 0 before that.
std::atomic<std::int64_t> firstSignal{0};
static_assert(std::atomic<std::int64_t>::is_always_lock_free,
              "a signal handler may only touch such a value");

std::atomic<bool> isEndAsked{false};

std::int64_t monotonicMilliseconds() {
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

void noteInterrupt(int number) {
    const std::int64_t now = monotonicMilliseconds();
    std::int64_t first = 0;
    if (firstSignal.compare_exchange_strong(first, now) || now - first <= repeatMilliseconds)
        return;
    // It waits until the handler returns, and then ends the program.
    std::signal(number, SIG_DFL);
    std::raise(number);
}

} // namespace

void catchInterrupts() {
    struct sigaction action = {};
    action.sa_handler = noteInterrupt;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    if (std::signal(SIGHUP, SIG_IGN) != SIG_IGN) // nohup ignores it
        sigaction(SIGHUP, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

bool isInterrupted() {
    return firstSignal.load(std::memory_order_relaxed) != 0;
}

void endScan() {
    isEndAsked.store(true, std::memory_order_relaxed);
}

bool isEnding() {
    return isInterrupted() || isEndAsked.load(std::memory_order_relaxed);
}
