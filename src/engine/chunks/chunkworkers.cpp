// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunkworkers.h"

#include "logging.h"

#include <algorithm>
#include <exception>

ChunkWorkers::ChunkWorkers(int count, std::shared_ptr<ChunkStream> stream,
                           CodecContextPointer context, PictureWork pictureWork,
                           std::function<bool()> isInterrupted)
    : stream(std::move(stream))
    , pictureWork(std::move(pictureWork))
    , isInterrupted(std::move(isInterrupted)) {
    threads.reserve(std::size_t(count));
    // A function that a thread takes must be one that can be copied.
    const auto first = std::make_shared<CodecContextPointer>(std::move(context));
    try {
        for (int i = 0; i < count; ++i)
            threads.emplace_back(
                [this, first, i] { work(i == 0 ? std::move(*first) : CodecContextPointer()); });
    } catch (const std::exception& error) {
        qCDebug(engineLog, "%d threads for chunks: %s", int(threads.size()), error.what());
    }
}

ChunkWorkers::~ChunkWorkers() {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isStopping = true;
    }
    changed.notify_all();
    for (std::thread& thread : threads)
        thread.join();
}

void ChunkWorkers::add(ChunkPointer chunk) {
    const std::lock_guard<std::mutex> lock(mutex);
    inHand.push_back(chunk.get());
    waiting.push_back(std::move(chunk));
    changed.notify_all();
}

void ChunkWorkers::wait(const Chunk& chunk) {
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this, &chunk] {
        return std::find(inHand.begin(), inHand.end(), &chunk) == inHand.end();
    });
}

ChunkPointer ChunkWorkers::take() {
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return !waiting.empty() || isStopping; });
    if (isStopping)
        return nullptr;
    ChunkPointer chunk = std::move(waiting.front());
    waiting.pop_front();
    return chunk;
}

bool ChunkWorkers::isStopped() {
    const std::lock_guard<std::mutex> lock(mutex);
    return isStopping;
}

void ChunkWorkers::work(CodecContextPointer context) {
    const std::unique_ptr<ChunkDecoder> decoder = makeDecoder(std::move(context));
    while (const ChunkPointer chunk = take()) {
        decode(decoder.get(), *chunk);
        const std::lock_guard<std::mutex> lock(mutex);
        inHand.erase(std::find(inHand.begin(), inHand.end(), chunk.get()));
        changed.notify_all();
    }
}

/// Null without memory: all that the thread takes is then a mismatch.
std::unique_ptr<ChunkDecoder> ChunkWorkers::makeDecoder(CodecContextPointer context) {
    try {
        const auto& [comparison, reduction, keeper] = pictureWork;
        return std::make_unique<ChunkDecoder>(
            stream, std::move(context), comparison(), reduction ? reduction() : nullptr,
            keeper ? keeper() : nullptr, [this] { return isStopped() || isInterrupted(); });
    } catch (const std::exception& error) {
        qCWarning(engineLog, "no decoder for chunks: %s", error.what());
        return nullptr;
    }
}

/// Whatever goes wrong on this thread goes wrong on that of the detection again, if it must.
void ChunkWorkers::decode(ChunkDecoder* decoder, Chunk& chunk) {
    try {
        if (decoder)
            decoder->decode(chunk);
        else
            chunk.hasMismatch = true;
    } catch (...) {
        chunk.hasMismatch = true;
    }
}
