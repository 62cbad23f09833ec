// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stretchworkers.h"

#include "ffmpegmutex.h"
#include "logging.h"

#include <QMutexLocker>

#include <algorithm>
#include <exception>

StretchWorkers::StretchWorkers(int count, std::shared_ptr<StretchStream> stream,
                               CodecContextPointer context, PictureComparisonMaker maker,
                               PictureKeeperMaker keeperMaker, std::function<bool()> isInterrupted)
    : stream(std::move(stream))
    , maker(std::move(maker))
    , keeperMaker(std::move(keeperMaker))
    , isInterrupted(std::move(isInterrupted)) {
    threads.reserve(std::size_t(count));
    // A function that a thread takes must be one that can be copied.
    const auto first = std::make_shared<CodecContextPointer>(std::move(context));
    try {
        for (int i = 0; i < count; ++i)
            threads.emplace_back(
                [this, first, i] { work(i == 0 ? std::move(*first) : CodecContextPointer()); });
    } catch (const std::exception& error) {
        qCDebug(engineLog, "%d threads for stretches: %s", int(threads.size()), error.what());
    }
    if (threads.empty()) {
        QMutexLocker lock(&ffmpegMutex());
        first->reset();
    }
}

StretchWorkers::~StretchWorkers() {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isStopping = true;
    }
    changed.notify_all();
    for (std::thread& thread : threads)
        thread.join();
}

void StretchWorkers::add(StretchPointer stretch) {
    const std::lock_guard<std::mutex> lock(mutex);
    inHand.push_back(stretch.get());
    waiting.push_back(std::move(stretch));
    changed.notify_all();
}

void StretchWorkers::wait(const Stretch& stretch) {
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this, &stretch] {
        return std::find(inHand.begin(), inHand.end(), &stretch) == inHand.end();
    });
}

StretchPointer StretchWorkers::take() {
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return !waiting.empty() || isStopping; });
    if (isStopping)
        return nullptr;
    StretchPointer stretch = std::move(waiting.front());
    waiting.pop_front();
    return stretch;
}

bool StretchWorkers::isStopped() {
    const std::lock_guard<std::mutex> lock(mutex);
    return isStopping;
}

void StretchWorkers::work(CodecContextPointer context) {
    const std::unique_ptr<StretchDecoder> decoder = makeDecoder(std::move(context));
    while (const StretchPointer stretch = take()) {
        decode(decoder.get(), *stretch);
        const std::lock_guard<std::mutex> lock(mutex);
        inHand.erase(std::find(inHand.begin(), inHand.end(), stretch.get()));
        changed.notify_all();
    }
}

/// Null without memory: all that the thread takes is then left in doubt.
std::unique_ptr<StretchDecoder> StretchWorkers::makeDecoder(CodecContextPointer context) {
    try {
        return std::make_unique<StretchDecoder>(stream, std::move(context), maker(),
                                                keeperMaker ? keeperMaker() : nullptr,
                                                [this] { return isStopped() || isInterrupted(); });
    } catch (const std::exception& error) {
        qCWarning(engineLog, "no decoder for stretches: %s", error.what());
        return nullptr;
    }
}

/// Whatever goes wrong on this thread goes wrong on that of the detection again, if it must.
void StretchWorkers::decode(StretchDecoder* decoder, Stretch& stretch) {
    try {
        if (decoder)
            decoder->decode(stretch);
        else
            stretch.isInDoubt = true;
    } catch (...) {
        stretch.isInDoubt = true;
    }
}
