// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "addedfiles.h"

#include "mainwindow.h"
#include "settingstable.h"

#include <QDirIterator>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace {

/// Never empty: a dialog takes that for the current directory, which the first export changes.
QString oneOf(const QString& stored, const QString& startDirectory) {
    return stored.isEmpty() ? startDirectory : stored;
}

QStringList filesBelow(const QString& directory) {
    QStringList files;
    QDirIterator iterator(directory, QDir::Files, QDirIterator::Subdirectories);
    while (iterator.hasNext())
        files.append(iterator.next());
    return files;
}

QStringList localPaths(const QMimeData& data) {
    QStringList paths;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    return paths;
}

} // namespace

QStringList askForFiles(QWidget* parent, const QString& startDirectory) {
    QSettings store;
    QStringList files =
        QFileDialog::getOpenFileNames(parent, MainWindow::tr("Select one or more files to open"),
                                      oneOf(settings::lastFiles.read(store), startDirectory));
    if (!files.isEmpty())
        settings::lastFiles.write(store, QFileInfo(files.first()).absolutePath());
    return files;
}

std::optional<QStringList> askForDirectoryFiles(QWidget* parent, const QString& startDirectory) {
    QSettings store;
    const QString directory = QFileDialog::getExistingDirectory(
        parent, MainWindow::tr("Select folder to add"),
        oneOf(settings::lastDirectory.read(store), startDirectory), QFileDialog::ShowDirsOnly);
    if (directory.isEmpty())
        return std::nullopt;
    settings::lastDirectory.write(store, directory);
    return filesBelow(directory);
}

bool canBeDropped(const QMimeData& data) {
    return !localPaths(data).isEmpty();
}

QStringList droppedFiles(const QMimeData& data) {
    QSettings store;
    QStringList files;
    bool hasFile = false;
    for (const QString& path : localPaths(data)) {
        const QFileInfo info(path);
        if (info.isDir()) {
            settings::lastDirectory.write(store, path);
            files.append(filesBelow(path));
            continue;
        }
        if (!hasFile)
            settings::lastFiles.write(store, info.absolutePath());
        hasFile = true;
        files.append(path);
    }
    return files;
}
