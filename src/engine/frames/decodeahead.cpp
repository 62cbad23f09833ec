// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "decodeahead.h"

#include "framebudget.h"
#include "logging.h"
#include "videodecoder.h"

#include <new>

namespace {

// Enough to even out pictures that take longer; with those that the measure and the segmentation
// hold, the engine stays within a dozen decoded pictures.
constexpr std::size_t mostQueued = 3;

} // namespace

DecodeAhead::DecodeAhead(VideoDecoder& decoder, bool isAhead)
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

ReadPicture DecodeAhead::next() {
    if (!thread.joinable())
        return readOrFail();
    std::unique_lock<std::mutex> lock(mutex);
    isWanted = true;
    changed.notify_all();
    changed.wait(lock, [this] { return !queue.empty() || thrown; });
    isWanted = false;
    if (queue.empty())
        std::rethrow_exception(thrown);
    ReadPicture picture = queue.front();
    if (picture.frame)
        queue.pop_front();
    lock.unlock();
    changed.notify_all();
    return picture;
}

ReadPicture DecodeAhead::readOne() {
    FramePointer frame(decoder.readFrame(true));
    const ReadEnd end = frame ? ReadEnd() : decoder.readEnd();
    const double rate = frame ? decoder.headerFrameRate() : 0.0;
    return {std::move(frame), decoder.bytePosition(), rate, end};
}

ReadPicture DecodeAhead::readOrFail() {
    try {
        return readOne();
    } catch (const std::bad_alloc&) {
        ReadPicture none;
        none.end = {ReadEnd::Cause::OutOfMemory, QStringLiteral("out of memory")};
        return none;
    }
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
        ReadPicture picture = readOrFail();
        lock.lock();
        isAtEnd = !picture.frame;
        areSmall = picture.frame && picture.frame->bytes() <= largestKeptPicture;
        queue.push_back(std::move(picture));
        changed.notify_all();
    }
}

/// The first picture is not read before it is wanted, either: nobody knows its size.
bool DecodeAhead::mayRead() const {
    return areSmall ? queue.size() < mostQueued : queue.empty() && isWanted;
}
