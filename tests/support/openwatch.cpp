// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "openwatch.h"

#include <QFile>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>

OpenWatch::OpenWatch(const QStringList& files)
    : descriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    for (const QString& file : files)
        isWatching =
            isWatching &&
            ::inotify_add_watch(descriptor, QFile::encodeName(file).constData(), IN_OPEN) >= 0;
}

OpenWatch::~OpenWatch() {
    ::close(descriptor);
}

int OpenWatch::count() {
    if (!isWatching)
        return -1;
    // Events of watched files carry no name: each is as long as its struct.
    std::array<inotify_event, 64> events{};
    int opened = 0;
    ssize_t bytes = 0;
    while ((bytes = ::read(descriptor, events.data(), sizeof events)) > 0)
        opened += int(std::size_t(bytes) / sizeof(inotify_event));
    return opened;
}
