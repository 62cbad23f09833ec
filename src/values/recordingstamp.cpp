// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingstamp.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

std::optional<RecordingStamp> stampOf(const QString& video) {
    const QByteArray path = QFile::encodeName(QFileInfo(video).absoluteFilePath());
    struct stat found {};
    if (stat(path.constData(), &found) != 0 || !S_ISREG(found.st_mode))
        return std::nullopt;
    constexpr qint64 nanoseconds = 1000 * 1000 * 1000;
    return RecordingStamp{path, found.st_size,
                          found.st_mtim.tv_sec * nanoseconds + found.st_mtim.tv_nsec};
}
