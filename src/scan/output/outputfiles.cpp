// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "outputfiles.h"

#include <QBuffer>

#include <cerrno>
#include <fcntl.h>
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

QString writePictureFile(const QImage& picture, const QString& path, FolderLink link) {
    QBuffer png;
    if (!png.open(QIODevice::WriteOnly) || !picture.save(&png, "PNG"))
        return QStringLiteral("it cannot be encoded");
    return writeWholeFile(path, png.data(), link);
}
