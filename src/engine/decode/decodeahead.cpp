#include "decodeahead.h"

#include "logging.h"
#include "videodecoder.h"

#include <system_error>

namespace {

// Enough to even out pictures that take longer; with those that the measure and the segmentation
// hold, the engine stays within a dozen decoded pictures.
constexpr std::size_t mostQueued = 2;

} // namespace

DecodeAhead::DecodeAhead(VideoDecoder& decoder, bool isAhead)
    : decoder(decoder) {
    if (!isAhead)
        return;
    try {
        thread = std::thread([this] { readAll(); });
    } catch (const std::system_error& error) {
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
        return readOne();
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return !queue.empty(); });
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

void DecodeAhead::readAll() {
    bool isAtEnd = false;
    while (!isAtEnd) {
        ReadPicture picture = readOne();
        isAtEnd = !picture.frame;
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [this] { return queue.size() < mostQueued || isStopping; });
        if (isStopping)
            return;
        queue.push_back(std::move(picture));
        lock.unlock();
        changed.notify_all();
    }
}
