// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "heldtrace.h"

#include <QFile>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int capacity = 4096;
constexpr int longestLine = 64;

} // namespace

HeldTrace::HeldTrace(const QString& path)
    : fileName(path) {
    const QByteArray name = QFile::encodeName(path);
    unlink(name.constData());
    mkfifo(name.constData(), 0600);
    // Both ends, so that neither side's opening waits for the other.
    descriptor = open(name.constData(), O_RDWR | O_CLOEXEC);
    fcntl(descriptor, F_SETPIPE_SZ, capacity);
}

HeldTrace::~HeldTrace() {
    close(descriptor);
}

bool HeldTrace::isHolding() const {
    int waiting = 0;
    return ioctl(descriptor, FIONREAD, &waiting) == 0 && waiting > capacity - longestLine;
}

void HeldTrace::letGo() {
    // It ends with the test program at the latest.
    std::thread([reader = open(QFile::encodeName(fileName).constData(), O_RDONLY | O_CLOEXEC)] {
        char bytes[capacity];
        while (read(reader, bytes, sizeof bytes) > 0) {
        }
        close(reader);
    }).detach();
}
