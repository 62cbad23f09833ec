// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QString>
#include <QVector>

#include <functional>

/// Whether a file's folder may itself be a symbolic link. One that a person has named may; one
/// whose name others can guess must not, since they may have put a link there.
enum class FolderLink { Followed, Refused };

/// Who may read a file that is written: whom the umask and an older file of that name let, or its
/// owner alone.
enum class FileAccess { AsUsual, OwnersAlone };

/// Takes the next piece of a file. After false no more is wanted.
using PieceSink = std::function<bool(const QByteArray& piece)>;

/// Gives a file to `sink`, piece by piece.
using PieceWriter = std::function<void(const PieceSink& sink)>;

/// Writes a file beside `path`, under a name that nobody can guess, to the disk, and then puts it
/// in its place. Whoever reads it meanwhile, or after a power cut, finds the older file or the new
/// one; of several that write it at once the last one counts. What is no file there, such as a
/// link, is replaced and not followed.
///
/// Answers why it could not be done, for a person; empty after a success.
QString writeWholeFile(const QString& path, const PieceWriter& writePieces,
                       FolderLink link = FolderLink::Followed,
                       FileAccess access = FileAccess::AsUsual);
QString writeWholeFile(const QString& path, const QByteArray& bytes,
                       FolderLink link = FolderLink::Followed,
                       FileAccess access = FileAccess::AsUsual);

/// A file's name in a folder, and what is in it.
struct NamedBytes {
    QString name;
    QByteArray bytes;
};

/// The same for several files of a folder, which take their places in this order once all of them
/// are on the disk: one for which there is no room leaves all older ones. The answer names it.
QString writeWholeFiles(const QString& folder, const QVector<NamedBytes>& files);

/// Fills the file at an absolute path; answers why it could not, for a person, or nothing.
using FileFiller = std::function<QString(const QString& beside)>;

/// The same for a file that `fill`, such as another program, writes by its path: it is there and
/// empty.
QString replaceFile(const QString& path, const FileFiller& fill);

/// Writes all of `bytes` to `output`, which is open without a buffer. False if that failed;
/// `output.errorString()` then says why.
bool writeAll(QIODevice& output, const QByteArray& bytes);

/// Waits until what was written to the open file is on its disk. Answers why it is not, for a
/// person; empty after a success, and where there is no disk behind the file.
QString syncToDisk(const QFileDevice& file);
