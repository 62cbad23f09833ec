// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "regularfile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

bool openRegularFile(const QString& path, QFile& file, QString& flaw) {
    const QByteArray name = QFile::encodeName(path);
    struct stat found {};
    if (stat(name.constData(), &found) != 0) {
        flaw = errno == ENOENT ? QString() : qt_error_string(errno);
        return false;
    }
    if (!S_ISREG(found.st_mode)) {
        flaw = QStringLiteral("it is no regular file");
        return false;
    }
    const int descriptor = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0)
        flaw = qt_error_string(errno);
    return descriptor >= 0 && file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered,
                                        QFileDevice::AutoCloseHandle);
}
