// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

extern "C" {
#include <libavformat/avio.h>
}

#include <cstdint>
#include <functional>
#include <memory>

struct BytesDeleter {
    void operator()(AVIOContext* bytes) const;
};

/// The file that somebody named, as the bytes that a demuxer reads.
///
/// Reads regular files, devices and pipes. Neither opening nor reading waits without asking whether
/// to give up: a pipe may have nobody who writes, a device nothing to say.
class InputFile {
public:
    /// `isInterrupted` is asked before every read and several times a second while one waits.
    explicit InputFile(std::function<bool()> isInterrupted);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// Opens `fileName`, which is a path whatever it looks like. 0, or the media library's code of
    /// an error. Once per object.
    int open(const char* fileName);

    /// What the demuxer reads from; null unless open. It answers AVERROR_EXIT once interrupted.
    AVIOContext* bytes() const { return io.get(); }

    /// Whether the file's start is still there: false for pipes.
    bool canSeek() const;

private:
    int read(std::uint8_t* buffer, int size) const;
    std::int64_t seek(std::int64_t offset, int whence) const;

    std::function<bool()> isInterrupted;
    int descriptor = -1;
    bool mayWait = false; ///< a read can wait for as long as it likes
    std::unique_ptr<AVIOContext, BytesDeleter> io;
};
