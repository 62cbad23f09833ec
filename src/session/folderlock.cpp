// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "folderlock.h"

#include <QFile>
#include <QMutex>
#include <QMutexLocker>
#include <QSet>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Of this program, which the kernel takes for one that has the lock already, and from which it
/// takes the lock when any descriptor of the file is closed.
class HeldHere {
public:
    bool add(const QString& path) {
        const QMutexLocker lock(&mutex);
        const bool isNew = !paths.contains(path);
        paths.insert(path);
        return isNew;
    }

    void remove(const QString& path) {
        const QMutexLocker lock(&mutex);
        paths.remove(path);
    }

private:
    QMutex mutex;
    QSet<QString> paths;
};

/// Never destroyed itself.
HeldHere& heldHere() {
    static auto* held = new HeldHere;
    return *held;
}

/// Not as flock() does it: such a lock would live on in a child that a program leaves which is
/// killed while it starts one.
bool setLock(int file) {
    struct flock whole {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    return fcntl(file, F_SETLK, &whole) == 0;
}

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
    if (!isHeld())
        return;
    ::close(file);
    heldHere().remove(path);
}

FolderLock::Outcome FolderLock::tryHold() {
    if (isHeld())
        return Outcome::Held;
    if (!heldHere().add(path))
        return Outcome::Others;
    const Outcome outcome = open();
    if (outcome != Outcome::Held) {
        const int error = errno;
        heldHere().remove(path);
        errno = error;
    }
    return outcome;
}

FolderLock::Outcome FolderLock::open() {
    // A link or a pipe that somebody has put there is neither followed nor waited for.
    const int flags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    const int opened = ::open(QFile::encodeName(path).constData(), flags, S_IRUSR | S_IWUSR);
    if (opened < 0)
        return Outcome::Failed;
    int error = isRegular(opened) ? 0 : EINVAL;
    if (error == 0 && !setLock(opened) && !hasNoLocks(errno))
        error = errno;
    if (error == 0) {
        file = opened;
        return Outcome::Held;
    }
    ::close(opened);
    errno = error;
    return error == EAGAIN || error == EACCES ? Outcome::Others : Outcome::Failed;
}
