// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "stretchdecoder.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

/// Threads that decode stretches, each with a decoder of its own.
class StretchWorkers {
public:
    /// Up to `count` threads. `context` is for the first of them. The functions are called on them.
    StretchWorkers(int count, std::shared_ptr<StretchStream> stream, CodecContextPointer context,
                   PictureComparisonMaker maker, PictureKeeperMaker keeperMaker,
                   std::function<bool()> isInterrupted);

    /// Waits for the packets that they have in hand, no longer.
    ~StretchWorkers();
    StretchWorkers(const StretchWorkers&) = delete;
    StretchWorkers& operator=(const StretchWorkers&) = delete;

    /// Whether there are several.
    bool areThere() const { return threads.size() > 1; }

    /// Has a stretch decoded, which is theirs until `wait` for it has returned.
    void add(StretchPointer stretch);

    /// Waits until the stretch is decoded, or left in doubt.
    void wait(const Stretch& stretch);

private:
    void work(CodecContextPointer context);
    std::unique_ptr<StretchDecoder> makeDecoder(CodecContextPointer context);
    static void decode(StretchDecoder* decoder, Stretch& stretch);
    StretchPointer take();
    bool isStopped();

    std::shared_ptr<StretchStream> stream;
    PictureComparisonMaker maker;
    PictureKeeperMaker keeperMaker; ///< may be null
    std::function<bool()> isInterrupted;

    std::mutex mutex;
    std::condition_variable changed;
    // Under the mutex, for all threads.
    std::deque<StretchPointer> waiting;
    std::vector<const Stretch*> inHand; ///< waiting or being decoded
    bool isStopping = false;

    std::vector<std::thread> threads; ///< last: they begin with everything above in place
};
