// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <sys/stat.h>

#include <atomic>
#include <functional>

/// A recording that has been opened for playing. Regular files only. Any thread may read.
class RecordingFile {
public:
    /// Opens it; `isOpen` tells whether that went well. `cut` is called, once, from the thread that
    /// reads, when less can be read than there was.
    RecordingFile(const QString& fileName, std::function<void()> cut);
    ~RecordingFile();
    RecordingFile(const RecordingFile&) = delete;
    RecordingFile& operator=(const RecordingFile&) = delete;

    bool isOpen() const { return descriptor >= 0; }

    /// Why it is not open: the system's number of an error, 0 where it is no regular file.
    int error() const { return failure; }

    /// Bytes, when it was opened.
    qint64 size() const { return qint64(status.st_size); }

    /// Whether there still is this file, as it was, under its name.
    bool isStillThere() const;

    /// Bytes read; 0 at the end, -1 after an error.
    qint64 read(char* into, quint64 most, qint64 offset);

private:
    const QByteArray name;
    const std::function<void()> cut;
    std::atomic<bool> isCut{false};
    struct stat status {};
    int descriptor = -1;
    int failure = 0;
};
