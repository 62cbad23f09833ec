// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "searchedfile.h"

#include <QFile>

#include <sys/stat.h>

namespace {

qint64 nanoseconds(const timespec& time) {
    constexpr qint64 inASecond = 1000 * 1000 * 1000;
    return time.tv_sec * inASecond + time.tv_nsec;
}

/// Nothing where there is no regular file.
std::optional<struct stat> statusOf(const QByteArray& path) {
    struct stat found {};
    if (stat(path.constData(), &found) != 0 || !S_ISREG(found.st_mode))
        return std::nullopt;
    return found;
}

} // namespace

std::optional<SearchedFile> searchedFileOf(const QString& fileName) {
    // Before the samples are read: what changes meanwhile is noticed later.
    const auto status = statusOf(QFile::encodeName(fileName));
    auto stamp = stampOf(fileName);
    if (!status || !stamp)
        return std::nullopt;
    return SearchedFile{*stamp, nanoseconds(status->st_ctim)};
}

bool isUntouched(const SearchedFile& file) {
    const auto status = statusOf(file.stamp.path);
    return status && status->st_size == file.stamp.bytes &&
           nanoseconds(status->st_mtim) == file.stamp.modified &&
           nanoseconds(status->st_ctim) == file.changed;
}
