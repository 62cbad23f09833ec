// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingfile.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace {

bool isSame(const struct stat& left, const struct stat& right) {
    return left.st_dev == right.st_dev && left.st_ino == right.st_ino &&
           left.st_size == right.st_size && left.st_mtim.tv_sec == right.st_mtim.tv_sec &&
           left.st_mtim.tv_nsec == right.st_mtim.tv_nsec;
}

int openToRead(const char* name) {
    // Opening a pipe otherwise waits for somebody who writes.
    const int opened = ::open(name, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    // Only a regular file that a file server has leased answers so; it comes free in a moment.
    if (opened < 0 && errno == EWOULDBLOCK)
        return ::open(name, O_RDONLY | O_CLOEXEC);
    return opened;
}

} // namespace

RecordingFile::RecordingFile(const QString& fileName, std::function<void()> cut)
    : name(QFile::encodeName(fileName))
    , cut(std::move(cut)) {
    const int opened = openToRead(name.constData());
    if (opened < 0 || ::fstat(opened, &status) < 0)
        failure = errno;
    else if (S_ISREG(status.st_mode))
        descriptor = opened;
    if (opened >= 0 && descriptor < 0)
        ::close(opened);
}

RecordingFile::~RecordingFile() {
    if (descriptor >= 0)
        ::close(descriptor);
}

bool RecordingFile::isStillThere() const {
    struct stat now {};
    return ::stat(name.constData(), &now) == 0 && isSame(now, status);
}

qint64 RecordingFile::read(char* into, quint64 most, qint64 offset) {
    constexpr quint64 mostAtOnce = 1 << 20;
    ssize_t count = 0;
    do
        count = ::pread(descriptor, into, std::size_t(std::min(most, mostAtOnce)), off_t(offset));
    while (count < 0 && errno == EINTR);
    if (count == 0 && offset < size() && !isCut.exchange(true))
        cut();
    return count < 0 ? -1 : qint64(count);
}
