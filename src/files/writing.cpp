// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "writing.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <fcntl.h>
#include <list>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// As long as the room that names leave for it (snapshotfolder.cpp, valuesname.cpp).
constexpr int randomLetters = 6;

QByteArray randomEnding() {
    constexpr char letters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    QByteArray ending = ".";
    for (int i = 0; i < randomLetters; ++i)
        ending += letters[QRandomGenerator::system()->bounded(int(sizeof letters) - 1)];
    return ending;
}

/// Functions that answer text say why it could not be done.
class WholeFile {
public:
    WholeFile(const QString& path, FolderLink link, FileAccess access);
    ~WholeFile(); ///< what has not been put in its place is removed
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    QString open();
    QString write(const QByteArray& bytes);
    QString commit();

    /// While it is open.
    QString besidePath() const { return QFile::decodeName(folderPath + '/' + temporary); }

private:
    QString openBeside();
    void keepMode();

    QByteArray folderPath;
    QByteArray name;
    FolderLink link;
    FileAccess access;
    int folder = -1;      ///< descriptor of the folder; -1 before it is open
    QByteArray temporary; ///< name in the folder while it is written; empty: nothing to remove
    QFile file;
};

WholeFile::WholeFile(const QString& path, FolderLink link, FileAccess access)
    : folderPath(QFile::encodeName(QFileInfo(path).absolutePath()))
    , name(QFile::encodeName(QFileInfo(path).fileName()))
    , link(link)
    , access(access) {}

WholeFile::~WholeFile() {
    file.close();
    if (!temporary.isEmpty())
        unlinkat(folder, temporary.constData(), 0);
    if (folder >= 0)
        close(folder);
}

QString WholeFile::open() {
    // Its descriptor stays the folder's own, whatever takes the folder's name meanwhile.
    const int flags = O_DIRECTORY | O_CLOEXEC | (link == FolderLink::Refused ? O_NOFOLLOW : 0);
    folder = ::open(folderPath.constData(), O_RDONLY | flags);
    if (folder < 0 && errno == EACCES) // that one may write into, but not list
        folder = ::open(folderPath.constData(), O_PATH | flags);
    return folder < 0 ? qt_error_string(errno) : openBeside();
}

QString WholeFile::openBeside() {
    constexpr int mostTries = 100; // nobody is lucky as often
    const mode_t mode = access == FileAccess::OwnersAlone ? 0600 : 0666;
    for (int i = 0; i < mostTries; ++i) {
        const QByteArray beside = name + randomEnding();
        const int descriptor = openat(folder, beside.constData(),
                                      O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
        if (descriptor < 0 && errno == EEXIST)
            continue;
        if (descriptor < 0)
            break;
        temporary = beside;
        if (!file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered,
                       QFileDevice::AutoCloseHandle))
            return file.errorString();
        if (access == FileAccess::AsUsual)
            keepMode();
        return {};
    }
    return qt_error_string(errno);
}

/// Who may read an older file of ours may read the new one, and nobody else.
void WholeFile::keepMode() {
    struct stat older = {};
    constexpr mode_t permissions = 0777;
    const bool isThere = fstatat(folder, name.constData(), &older, AT_SYMLINK_NOFOLLOW) == 0;
    if (isThere && S_ISREG(older.st_mode) && older.st_uid == geteuid())
        fchmod(file.handle(), older.st_mode & permissions);
}

QString WholeFile::write(const QByteArray& bytes) {
    return writeAll(file, bytes) ? QString() : file.errorString();
}

QString WholeFile::commit() {
    QString failure = syncToDisk(file);
    if (!failure.isEmpty())
        return failure;
    file.close();
    if (renameat(folder, temporary.constData(), folder, name.constData()) != 0)
        return qt_error_string(errno);
    temporary.clear();
    fsync(folder); // the new name, too; without it the older file is there after a power cut
    return {};
}

} // namespace

QString writeWholeFile(const QString& path, const PieceWriter& writePieces, FolderLink link,
                       FileAccess access) {
    WholeFile file(path, link, access);
    QString failure = file.open();
    if (!failure.isEmpty())
        return failure;
    writePieces([&](const QByteArray& piece) {
        failure = file.write(piece);
        return failure.isEmpty();
    });
    return failure.isEmpty() ? file.commit() : failure;
}

QString writeWholeFile(const QString& path, const QByteArray& bytes, FolderLink link,
                       FileAccess access) {
    return writeWholeFile(
        path, [&](const PieceSink& sink) { sink(bytes); }, link, access);
}

QString writeWholeFiles(const QString& folder, const QVector<NamedBytes>& files) {
    std::list<WholeFile> written;
    const auto named = [](const NamedBytes& file, const QString& failure) {
        return failure.isEmpty() ? QString() : file.name + QStringLiteral(": ") + failure;
    };
    QString failure;
    for (int i = 0; i < files.size() && failure.isEmpty(); ++i) {
        WholeFile& file = written.emplace_back(folder + '/' + files[i].name, FolderLink::Followed,
                                               FileAccess::AsUsual);
        failure = file.open();
        if (failure.isEmpty())
            failure = file.write(files[i].bytes);
        failure = named(files[i], failure);
    }
    auto next = written.begin();
    for (int i = 0; i < files.size() && failure.isEmpty(); ++i)
        failure = named(files[i], (next++)->commit());
    return failure;
}

QString replaceFile(const QString& path, const FileFiller& fill) {
    WholeFile file(path, FolderLink::Followed, FileAccess::AsUsual);
    QString failure = file.open();
    if (failure.isEmpty())
        failure = fill(file.besidePath());
    return failure.isEmpty() ? file.commit() : failure;
}

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
