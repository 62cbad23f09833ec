// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingstream.h"

#include "logging.h"

#include <algorithm>
#include <new>
#include <utility>

namespace {

constexpr const char* protocol = "recording";

/// A place in the file. What the player's demuxers tell of while they read is not an error of a
/// recording that is searched: they run on the threads that come here.
struct Reading {
    std::shared_ptr<RecordingFile> file;
    std::atomic<bool> isCancelled{false};
    std::int64_t position = 0;
};

std::int64_t readOn(void* cookie, char* into, std::uint64_t most) {
    disownLibavErrors();
    auto& reading = *static_cast<Reading*>(cookie);
    if (reading.isCancelled)
        return -1;
    const qint64 count = reading.file->read(into, most, reading.position);
    reading.position += std::max(count, qint64(0));
    return count;
}

std::int64_t seekTo(void* cookie, std::int64_t offset) {
    static_cast<Reading*>(cookie)->position = offset;
    return offset;
}

std::int64_t sizeOf(void* cookie) {
    return static_cast<Reading*>(cookie)->file->size();
}

void cancel(void* cookie) {
    static_cast<Reading*>(cookie)->isCancelled = true;
}

void close(void* cookie) {
    delete static_cast<Reading*>(cookie);
}

} // namespace

bool RecordingStream::addTo(const MpvLibrary& library, mpv_handle* player) {
    return library.addStream(player, protocol, this, open) >= 0;
}

QByteArray RecordingStream::lead(std::shared_ptr<RecordingFile> led) {
    const std::lock_guard lock(mutex);
    file = std::move(led);
    return QByteArray(protocol) + "://" + QByteArray::number(++number);
}

int RecordingStream::open(void* stream, char* address, mpv_stream_cb_info* info) {
    disownLibavErrors();
    auto& self = *static_cast<RecordingStream*>(stream);
    const std::lock_guard lock(self.mutex);
    const QByteArray wanted = QByteArray(protocol) + "://" + QByteArray::number(self.number);
    if (!self.file || wanted != address)
        return MPV_ERROR_LOADING_FAILED;
    info->cookie = new (std::nothrow) Reading{self.file};
    if (!info->cookie)
        return MPV_ERROR_LOADING_FAILED;
    info->read_fn = readOn;
    info->seek_fn = seekTo;
    info->size_fn = sizeOf;
    info->close_fn = close;
    info->cancel_fn = cancel;
    return 0;
}
