// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keptfolder.h"

#include "valuesname.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QMap>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <vector>

namespace {

/// The files of one recording.
struct Pair {
    QStringList files;
    qint64 bytes = 0;
    qint64 used = 0; ///< milliseconds since 1970
};

void touch(const QString& path) {
    // Who cannot is not told: the pair then goes a little earlier.
    utimensat(AT_FDCWD, QFile::encodeName(path).constData(), nullptr, AT_SYMLINK_NOFOLLOW);
}

/// What a file has in common with the others of its pair; empty for files of nobody's.
QString pairOf(const QFileInfo& file) {
    for (const char* ending : {".values", ".cells"}) {
        const int place = file.filePath().lastIndexOf(QLatin1String(ending));
        if (place > file.path().size())
            return file.filePath().left(place);
    }
    return {};
}

std::vector<Pair> pairsIn(const QStringList& folders) {
    QMap<QString, Pair> pairs;
    for (const QString& folder : folders) {
        const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files | QDir::Hidden);
        for (const QFileInfo& file : files) {
            const QString name = pairOf(file);
            if (name.isEmpty())
                continue;
            Pair& pair = pairs[name];
            pair.files.append(file.filePath());
            pair.bytes += file.size();
            pair.used = std::max(pair.used, file.lastModified().toMSecsSinceEpoch());
        }
    }
    return {pairs.cbegin(), pairs.cend()};
}

qint64 sum(const std::vector<Pair>& pairs) {
    qint64 bytes = 0;
    for (const Pair& pair : pairs)
        bytes += pair.bytes;
    return bytes;
}

} // namespace

void markUsed(const QString& path) {
    touch(path);
    touch(cellsPath(path));
}

qint64 bytesIn(const QStringList& folders) {
    return sum(pairsIn(folders));
}

void removeOldest(const QStringList& folders, qint64 bytes) {
    std::vector<Pair> pairs = pairsIn(folders);
    std::sort(pairs.begin(), pairs.end(),
              [](const Pair& left, const Pair& right) { return left.used < right.used; });
    qint64 left = sum(pairs);
    for (const Pair& pair : pairs) {
        if (left <= bytes)
            return;
        for (const QString& file : pair.files)
            QFile::remove(file);
        left -= pair.bytes;
    }
}
