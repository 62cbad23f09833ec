// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "faults.h"

#include <QFileInfo>

#include <cerrno>

namespace {

QProcessEnvironment failing(const char* call, int error, qint64 after, const QString& file = {}) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_PRELOAD", KESTROVA_FAILING_CALLS);
    environment.insert("FAILING_CALL", call);
    environment.insert("FAILING_ERROR", QString::number(error));
    environment.insert("FAILING_AFTER", QString::number(after));
    environment.insert("FAILING_FILE", file);
    // The sanitizer asks to be the first library.
    environment.insert("ASAN_OPTIONS",
                       environment.value("ASAN_OPTIONS") + ":verify_asan_link_order=0");
    return environment;
}

} // namespace

namespace faults {

QProcessEnvironment callError(const char* call, int error, const QString& file, int room) {
    return failing(call, error, room, file);
}

QProcessEnvironment readError(const QString& file, qint64 offset) {
    return failing("read", EIO, offset, QFileInfo(file).canonicalFilePath());
}

QProcessEnvironment noThreads(int started) {
    return failing("pthread_create", EAGAIN, started);
}

QProcessEnvironment noThreadsWhile(const QString& file) {
    return failing("pthread_create", EAGAIN, 0, file);
}

QProcessEnvironment noMemoryOnce(const QString& library, int before) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_PRELOAD", KESTROVA_FAILING_ALLOCATIONS);
    environment.insert("FAILING_LIBRARY", library);
    environment.insert("FAILING_AFTER", QString::number(before));
    return environment;
}

} // namespace faults
