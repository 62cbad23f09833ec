// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "decodeahead.h"

#include "decodingcontext.h"
#include "framebudget.h"
#include "logging.h"

namespace {

// Enough to even out pictures that take longer; with those that the measure and the segmentation
// hold, the engine stays within a dozen decoded pictures.
constexpr std::size_t mostQueued = 3;

} // namespace

DecodeAhead::DecodeAhead(DecodingContext& decoder, bool isAhead)
    : decoder(decoder) {
    if (!isAhead)
        return;
    try {
        thread = std::thread([this] { readAll(); });
    } catch (const std::exception& error) {
        qCDebug(engineLog, "no thread to decode on: %s", error.what());
    }
}

DecodeAhead::~DecodeAhead() {
    if (!thread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isStopping = true;
    }
    changed.notify_all();
    thread.join();
}

Frame DecodeAhead::next() {
    if (!thread.joinable())
        return decoder.next();
    std::unique_lock<std::mutex> lock(mutex);
    isWanted = true;
    changed.notify_all();
    changed.wait(lock, [this] { return !queue.empty() || thrown; });
    isWanted = false;
    if (queue.empty())
        std::rethrow_exception(thrown);
    Frame frame = queue.front();
    if (frame.isThere())
        queue.pop_front();
    lock.unlock();
    changed.notify_all();
    return frame;
}

/// The thread. Nothing may leave it but by way of who waits.
void DecodeAhead::readAll() {
    try {
        readOrThrow();
    } catch (...) {
        const std::lock_guard<std::mutex> lock(mutex);
        thrown = std::current_exception();
        changed.notify_all();
    }
}

void DecodeAhead::readOrThrow() {
    bool isAtEnd = false;
    std::unique_lock<std::mutex> lock(mutex);
    while (!isAtEnd) {
        changed.wait(lock, [this] { return mayRead() || isStopping; });
        if (isStopping)
            return;
        lock.unlock();
        Frame frame = decoder.next();
        lock.lock();
        isAtEnd = !frame.isThere();
        areSmall = !isAtEnd && frame.picture->bytes() <= largestKeptPicture;
        queue.push_back(std::move(frame));
        changed.notify_all();
    }
}

/// The first picture is not read before it is wanted, either: nobody knows its size.
bool DecodeAhead::mayRead() const {
    return areSmall ? queue.size() < mostQueued : queue.empty() && isWanted;
}
