// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "waits.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

constexpr qint64 quietMilliseconds = 600; ///< longer than any pause of the window
constexpr qint64 longestMilliseconds = 180000;

double milliseconds(clockid_t clock) {
    timespec time = {};
    clock_gettime(clock, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

} // namespace

void Wait::include(const Wait& other) {
    busy = std::max(busy, other.busy);
    clock = std::max(clock, other.clock);
}

Wait waitFor(const Action& action) {
    const double busy = milliseconds(CLOCK_THREAD_CPUTIME_ID);
    const double clock = milliseconds(CLOCK_MONOTONIC);
    action();
    return {milliseconds(CLOCK_THREAD_CPUTIME_ID) - busy, milliseconds(CLOCK_MONOTONIC) - clock};
}

Wait longestPass(const Condition& isDone) {
    Wait longest;
    QElapsedTimer sinceStart;
    sinceStart.start();
    QElapsedTimer sinceWork;
    sinceWork.start();
    while (sinceWork.elapsed() < quietMilliseconds && sinceStart.elapsed() < longestMilliseconds) {
        const Wait pass = waitFor([] { QCoreApplication::processEvents(); });
        longest.include(pass);
        if (pass.busy > 1.0 || !isDone())
            sinceWork.restart();
        QThread::usleep(500);
    }
    return longest;
}

void print(const char* what, const Wait& wait) {
    std::printf("%s: %.1f ms, by the clock %.1f ms\n", what, wait.busy, wait.clock);
    std::fflush(stdout);
}

void measure(const char* what, const Action& action, const Condition& isDone) {
    Wait longest = waitFor(action);
    longest.include(longestPass(isDone));
    print(what, longest);
}
