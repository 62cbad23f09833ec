// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "writing.h"

#include <cerrno>
#include <unistd.h>

bool writeAll(QIODevice& output, const QByteArray& bytes) {
    qint64 written = 0;
    while (written < bytes.size()) {
        // Where only a part was taken, the next try says why.
        const qint64 part = output.write(bytes.constData() + written, bytes.size() - written);
        if (part <= 0)
            return false;
        written += part;
    }
    return true;
}

QString syncToDisk(const QFileDevice& file) {
    if (fsync(file.handle()) == 0 || errno == EINVAL || errno == EROFS)
        return {};
    return qt_error_string(errno);
}
