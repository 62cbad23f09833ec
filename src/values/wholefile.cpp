// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wholefile.h"

#include "writing.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace {

/// Opens a file beside `path` that nobody else has. Those of programs that were killed may be left.
bool openBeside(const QString& path, QFile& file) {
    static std::atomic<int> count{0};
    constexpr int mostTries = 1000;
    for (int i = 0; i < mostTries; ++i) {
        file.setFileName(QStringLiteral("%1.%2-%3.part")
                             .arg(path, QString::number(getpid()), QString::number(++count)));
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
            return true;
        if (!QFileInfo::exists(file.fileName()))
            return false;
    }
    return false;
}

QString written(QFile& file, const QByteArray& bytes) {
    return writeAll(file, bytes) ? syncToDisk(file) : file.errorString();
}

QString renamed(const QString& from, const QString& to) {
    const int result =
        std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData());
    return result == 0 ? QString() : qt_error_string(errno);
}

/// The new name, too, is to be there after a power cut; the file itself is safe either way.
void syncFolder(const QString& path) {
    const int folder = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (folder < 0)
        return;
    fsync(folder);
    close(folder);
}

} // namespace

QString writeWholeFile(const QString& path, const QByteArray& bytes) {
    const QString folder = QFileInfo(path).absolutePath();
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(folder).toStdString(), error);
    if (error)
        return QString::fromStdString(error.message());
    QFile file;
    if (!openBeside(path, file))
        return file.errorString();
    QString failure = written(file, bytes);
    file.close();
    if (failure.isEmpty())
        failure = renamed(file.fileName(), path);
    if (failure.isEmpty())
        syncFolder(folder);
    else
        file.remove();
    return failure;
}
