// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracefile.h"

#include "foldercheck.h"

#include <cerrno>
#include <fcntl.h>

QString openTraceFile(QFile& file) {
    const QByteArray name = QFile::encodeName(file.fileName());
    constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC;
    int descriptor = open(name.constData(), flags | O_NOFOLLOW, 0666);
    if (descriptor < 0 && errno == ELOOP) {
        if (isForeignLink(file.fileName()))
            return QStringLiteral("it is a symbolic link of another user, and is not followed");
        descriptor = open(name.constData(), flags, 0666);
    }
    if (descriptor < 0)
        return qt_error_string(errno);
    const bool isOpen = file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered,
                                  QFileDevice::AutoCloseHandle);
    return isOpen ? QString() : file.errorString();
}
