// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "folder.h"

#include "foreignlink.h"

#include <QFile>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <unistd.h>

QString prepareFolder(const QString& path, FolderLink link) {
    if (isForeignLink(path))
        return QStringLiteral("it is a symbolic link of another user");
    if (link == FolderLink::Refused && isLink(path))
        return QStringLiteral("it is a symbolic link");
    const std::string name = QFile::encodeName(path).toStdString();
    std::error_code error;
    std::filesystem::create_directories(name, error);
    if (!error && access(name.c_str(), W_OK | X_OK) != 0)
        error.assign(errno, std::generic_category());
    return error ? QString::fromStdString(error.message()) : QString();
}
