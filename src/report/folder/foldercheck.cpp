// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "foldercheck.h"

#include <QFile>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

/// Whose symbolic link `path` itself is, whatever is above it; nothing: it is none.
std::optional<uid_t> linkOwner(const QString& path) {
    QByteArray name = QFile::encodeName(path);
    while (name.size() > 1 && name.endsWith('/')) // which would mean what it leads to
        name.chop(1);
    struct stat entry = {};
    const bool isLink = lstat(name.constData(), &entry) == 0 && S_ISLNK(entry.st_mode);
    return isLink ? std::optional(entry.st_uid) : std::nullopt;
}

} // namespace

bool isForeignLink(const QString& path) {
    const auto owner = linkOwner(path);
    return owner && *owner != 0 && *owner != geteuid();
}

QString prepareFolder(const QString& path, FolderLink link) {
    if (isForeignLink(path))
        return QStringLiteral("it is a symbolic link of another user");
    if (link == FolderLink::Refused && linkOwner(path))
        return QStringLiteral("it is a symbolic link");
    const std::string name = QFile::encodeName(path).toStdString();
    std::error_code error;
    std::filesystem::create_directories(name, error);
    if (!error && access(name.c_str(), W_OK | X_OK) != 0)
        error.assign(errno, std::generic_category());
    return error ? QString::fromStdString(error.message()) : QString();
}
