// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "folderlock.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool isRegular(int file) {
    struct stat found {};
    return fstat(file, &found) == 0 && S_ISREG(found.st_mode);
}

/// Not every network's file system has any.
bool hasNoLocks(int error) {
    return error == ENOSYS || error == EOPNOTSUPP || error == ENOLCK || error == EINVAL;
}

} // namespace

FolderLock::FolderLock(const QString& path)
    : path(path) {}

FolderLock::~FolderLock() {
    if (isHeld())
        ::close(file);
}

FolderLock::Outcome FolderLock::tryHold() {
    if (isHeld())
        return Outcome::Held;
    // A link or a pipe that somebody has put there is neither followed nor waited for.
    const int flags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    const int opened = ::open(QFile::encodeName(path).constData(), flags, S_IRUSR | S_IWUSR);
    if (opened < 0)
        return Outcome::Failed;
    int error = isRegular(opened) ? 0 : EINVAL;
    if (error == 0 && flock(opened, LOCK_EX | LOCK_NB) != 0 && !hasNoLocks(errno))
        error = errno;
    if (error == 0) {
        file = opened;
        return Outcome::Held;
    }
    ::close(opened);
    errno = error;
    return error == EWOULDBLOCK ? Outcome::Others : Outcome::Failed;
}
