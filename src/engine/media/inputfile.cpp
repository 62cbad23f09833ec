// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "inputfile.h"

extern "C" {
#include <libavutil/error.h>
#include <libavutil/mem.h>
}

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace {

// The media library's own sizes, on which the positions depend that it reports.
constexpr int bufferSize = 32768;
constexpr int pipeBufferSize = 65536;

int openToRead(const char* fileName) {
    // Opening a pipe otherwise waits for somebody who writes.
    const int descriptor = ::open(fileName, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    // Only a regular file that a file server has leased answers so; it comes free in a moment.
    if (descriptor < 0 && errno == EWOULDBLOCK)
        return ::open(fileName, O_RDONLY | O_CLOEXEC);
    return descriptor;
}

/// Waits a moment for something to read or the end of it.
bool isReadable(int descriptor) {
    constexpr int milliseconds = 100;
    pollfd waited{descriptor, POLLIN, 0};
    return ::poll(&waited, 1, milliseconds) > 0;
}

} // namespace

void BytesDeleter::operator()(AVIOContext* bytes) const {
    av_freep(&bytes->buffer);
    avio_context_free(&bytes);
}

InputFile::InputFile(std::function<bool()> isInterrupted)
    : isInterrupted(std::move(isInterrupted)) {}

InputFile::~InputFile() {
    if (descriptor >= 0)
        ::close(descriptor);
}

int InputFile::open(const char* fileName) {
    struct stat status {};
    descriptor = openToRead(fileName);
    if (descriptor < 0 || ::fstat(descriptor, &status) < 0)
        return AVERROR(errno);
    mayWait = !S_ISREG(status.st_mode) && !S_ISBLK(status.st_mode);
    const int size = S_ISFIFO(status.st_mode) ? pipeBufferSize : bufferSize;
    auto* buffer = static_cast<std::uint8_t*>(av_malloc(std::size_t(size)));
    if (buffer)
        io.reset(avio_alloc_context(
            buffer, size, 0, this,
            [](void* file, std::uint8_t* into, int most) {
                return static_cast<const InputFile*>(file)->read(into, most);
            },
            nullptr,
            [](void* file, std::int64_t offset, int whence) {
                return static_cast<const InputFile*>(file)->seek(offset, whence);
            }));
    if (!io) {
        av_free(buffer);
        return AVERROR(ENOMEM);
    }
    if (mayWait)
        io->seekable = 0;
    return 0;
}

bool InputFile::canSeek() const {
    return io && io->seekable != 0;
}

int InputFile::read(std::uint8_t* buffer, int size) const {
    while (!isInterrupted()) {
        // A pipe to which nobody writes yet would read as if it had ended.
        if (mayWait && !isReadable(descriptor))
            continue;
        const ssize_t count = ::read(descriptor, buffer, std::size_t(size));
        if (count > 0)
            return int(count);
        if (count == 0)
            return AVERROR_EOF;
        if (errno != EINTR && errno != EAGAIN)
            return AVERROR(errno);
    }
    return AVERROR_EXIT;
}

std::int64_t InputFile::seek(std::int64_t offset, int whence) const {
    if (whence == AVSEEK_SIZE) {
        struct stat status {};
        const bool isKnown = ::fstat(descriptor, &status) == 0;
        return isKnown ? std::int64_t(status.st_size) : AVERROR(errno);
    }
    const off_t position = ::lseek(descriptor, offset, whence & ~AVSEEK_FORCE);
    return position < 0 ? AVERROR(errno) : std::int64_t(position);
}
