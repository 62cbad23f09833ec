// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipfolders.h"

#include "clipnames.h"
#include "filenames.h"
#include "recording.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <sys/stat.h>

ClipFolders::ClipFolders(const QString& directory)
    : directory(QDir(directory).absolutePath())
    , longestName(directory.isEmpty() ? 0 : longestNameIn(directory)) {}

QString ClipFolders::next(const QString& video) {
    int& number = nextNumber[clipFolderName(video, 0, longestName)];
    QString name;
    do {
        name = clipFolderName(video, number++, longestName);
    } while (taken.contains(name) || QDir(directory).exists(name));
    taken.insert(name);
    return name;
}

ClipFolders::Made ClipFolders::make(Recording& recording) {
    const std::lock_guard<std::mutex> lock(mutex);
    QString& name = recording.clipFolder;
    while (mkdir(QFile::encodeName(QDir(directory).filePath(name)).constData(), 0777) != 0) {
        if (errno != EEXIST)
            return {{}, qt_error_string(errno)};
        name = next(recording.video);
    }
    return {QDir(directory).filePath(name), {}};
}
