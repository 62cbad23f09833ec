// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chunkdecoder.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

/// Threads that decode chunks, each with a decoder of its own.
class ChunkWorkers {
public:
    /// Up to `count` threads. `context` is for the first of them. The functions are called on them.
    ChunkWorkers(int count, std::shared_ptr<ChunkStream> stream, CodecContextPointer context,
                 PictureWork pictureWork, std::function<bool()> isInterrupted);

    /// Waits for the packets that they have in hand, no longer.
    ~ChunkWorkers();
    ChunkWorkers(const ChunkWorkers&) = delete;
    ChunkWorkers& operator=(const ChunkWorkers&) = delete;

    /// Whether there are several.
    bool areThere() const { return threads.size() > 1; }

    /// Has a chunk decoded, which is theirs until `wait` for it has returned.
    void add(ChunkPointer chunk);

    /// Waits until the chunk is decoded, or left as a mismatch.
    void wait(const Chunk& chunk);

private:
    void work(CodecContextPointer context);
    std::unique_ptr<ChunkDecoder> makeDecoder(CodecContextPointer context);
    static void decode(ChunkDecoder* decoder, Chunk& chunk);
    ChunkPointer take();
    bool isStopped();

    std::shared_ptr<ChunkStream> stream;
    PictureWork pictureWork;
    std::function<bool()> isInterrupted;

    std::mutex mutex;
    std::condition_variable changed;
    // Under the mutex, for all threads.
    std::deque<ChunkPointer> waiting;
    std::vector<const Chunk*> inHand; ///< waiting or being decoded
    bool isStopping = false;

    std::vector<std::thread> threads; ///< last: they begin with everything above in place
};
