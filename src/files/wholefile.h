// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

/// Whether a file's folder may itself be a symbolic link. One that a person has named may; one
/// whose name others can guess must not, since they may have put a link there.
enum class FolderLink { Followed, Refused };

/// A file that is written beside its place, under a name that nobody can guess, to the disk, and
/// then put in its place. Whoever reads it meanwhile, or after a power cut, finds the older file
/// or the new one; of several that write it at once the last one counts. What is no file there,
/// such as a link, is replaced and not followed.
///
/// Functions that answer text say why it could not be done, for a person; empty after a success.
class WholeFile {
public:
    explicit WholeFile(const QString& path, FolderLink link = FolderLink::Followed);
    ~WholeFile(); ///< what has not been put in its place is removed
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    /// Comes before all else.
    QString open();

    /// Writes all of `bytes` behind what has been written.
    QString write(const QByteArray& bytes);

    /// Puts the file in its place.
    QString commit();

private:
    QString openBeside();
    void keepMode();

    QByteArray folderPath;
    QByteArray name;
    FolderLink link;
    int folder = -1;      ///< descriptor of the folder; -1 before it is open
    QByteArray temporary; ///< name in the folder while it is written; empty: nothing to remove
    QFile file;
};

/// Writes `bytes` to `path` as a WholeFile. The folder is made where it is missing.
QString writeWholeFile(const QString& path, const QByteArray& bytes);
