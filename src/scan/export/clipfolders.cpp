// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipfolders.h"

#include "clipfolder.h"
#include "namelength.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <sys/stat.h>

ClipFolders::ClipFolders(const QString& directory, const QStringList& videos)
    : directory(QDir(directory).absolutePath())
    , videos(videos)
    , areMade(videos.size(), false) {
    if (directory.isEmpty())
        return;
    longestName = longestNameIn(directory);
    for (const QString& video : videos)
        names.append(nextFreeName(video));
}

ClipFolders::Made ClipFolders::make(int recording) {
    const std::lock_guard<std::mutex> lock(mutex);
    QString& name = names[recording];
    while (!areMade[recording]) {
        const QByteArray path = QFile::encodeName(QDir(directory).filePath(name));
        areMade[recording] = mkdir(path.constData(), 0777) == 0;
        if (!areMade[recording] && errno != EEXIST)
            return {{}, qt_error_string(errno)};
        if (!areMade[recording])
            name = nextFreeName(videos[recording]);
    }
    return {QDir(directory).filePath(name), {}};
}

QString ClipFolders::nextFreeName(const QString& video) {
    int& number = nextNumber[clipFolderName(video, 0, longestName)];
    QString name;
    do {
        name = clipFolderName(video, number++, longestName);
    } while (taken.contains(name) || QDir(directory).exists(name));
    taken.insert(name);
    return name;
}
