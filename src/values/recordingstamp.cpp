// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingstamp.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 sampleBytes = 4096;
constexpr int samples = 9;

int openToRead(const QByteArray& path) {
    const int flags = O_RDONLY | O_CLOEXEC | O_NOCTTY;
    const int descriptor = ::open(path.constData(), flags | O_NONBLOCK);
    // Only a regular file that a file server has leased answers so; it comes free in a moment.
    if (descriptor < 0 && errno == EWOULDBLOCK)
        return ::open(path.constData(), flags);
    return descriptor;
}

/// Takes in what lies at `begin`; false if it cannot be read.
bool addSample(int descriptor, qint64 begin, qint64 bytes, QCryptographicHash& hash) {
    QByteArray sample(int(bytes), Qt::Uninitialized);
    qint64 done = 0;
    while (done < bytes) {
        const ssize_t read =
            ::pread(descriptor, sample.data() + done, std::size_t(bytes - done), begin + done);
        if (read < 0 && errno == EINTR)
            continue;
        if (read <= 0)
            return false;
        done += read;
    }
    hash.addData(sample);
    return true;
}

bool addSamples(int descriptor, qint64 bytes, QCryptographicHash& hash) {
    if (bytes <= samples * sampleBytes)
        return addSample(descriptor, 0, bytes, hash);
    for (int i = 0; i < samples; ++i) {
        const qint64 begin = (bytes - sampleBytes) / (samples - 1) * i;
        const bool isLast = i == samples - 1;
        if (!addSample(descriptor, isLast ? bytes - sampleBytes : begin, sampleBytes, hash))
            return false;
    }
    return true;
}

} // namespace

QByteArray digestOf(const QByteArray& path, qint64 bytes) {
    const int descriptor = openToRead(path);
    if (descriptor < 0)
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const bool isRead = addSamples(descriptor, bytes, hash);
    ::close(descriptor);
    return isRead ? hash.result().toHex() : QByteArray();
}

std::optional<RecordingStamp> stampOf(const QString& video) {
    const QByteArray path = QFile::encodeName(QFileInfo(video).absoluteFilePath());
    struct stat found {};
    if (stat(path.constData(), &found) != 0 || !S_ISREG(found.st_mode))
        return std::nullopt;
    constexpr qint64 nanoseconds = 1000 * 1000 * 1000;
    return RecordingStamp{path, found.st_size,
                          found.st_mtim.tv_sec * nanoseconds + found.st_mtim.tv_nsec,
                          digestOf(path, found.st_size)};
}
