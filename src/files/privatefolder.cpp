// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "privatefolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t ownersAlone = 0700;

class Words {
    Q_DECLARE_TR_FUNCTIONS(PrivateFolder)
};

/// Through its descriptor: what takes its name meanwhile stays as it is. A file system without
/// permissions leaves things as they are.
void closeToOthers(const QByteArray& name) {
    const int folder = ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0)
        return;
    struct stat found {};
    if (fstat(folder, &found) == 0 && found.st_uid == geteuid())
        fchmod(folder, ownersAlone);
    ::close(folder);
}

} // namespace

QString makePrivateFolder(const QString& path) {
    const QByteArray name = QFile::encodeName(QDir::cleanPath(path));
    QDir().mkpath(QFileInfo(QDir::cleanPath(path)).path()); // what is missing is told below
    if (mkdir(name.constData(), ownersAlone) != 0 && errno != EEXIST)
        return qt_error_string(errno);
    QString flaw = privateFolderFlaw(path);
    if (flaw.isEmpty())
        closeToOthers(name);
    return flaw;
}

QString privateFolderFlaw(const QString& path) {
    const QByteArray name = QFile::encodeName(QDir::cleanPath(path)); // a link is not followed
    struct stat found {};
    if (lstat(name.constData(), &found) != 0)
        return errno == ENOENT ? QString() : qt_error_string(errno);
    if (S_ISLNK(found.st_mode))
        return Words::tr("the folder is a link that somebody may have put there");
    if (!S_ISDIR(found.st_mode))
        return qt_error_string(ENOTDIR);
    if (found.st_uid != geteuid())
        return Words::tr("the folder belongs to somebody else");
    return {};
}
