// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "snapshotfolder.h"

#include "clipnames.h"
#include "filenames.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstring>

namespace {

/// The most that is put behind a name, while its picture is being written.
const char longestEnding[] = "-2147483647.png.XXXXXX";

/// A name that `longest` bytes hold.
QString shortened(const QString& name, int longest) {
    if (nameLength(name) <= longest)
        return name;
    const QByteArray sum =
        QCryptographicHash::hash(QFile::encodeName(name), QCryptographicHash::Sha1).toHex();
    const QString ending = '~' + QString::fromLatin1(sum.left(8));
    return fittingBeginning(name, longest - ending.size()) + ending;
}

} // namespace

SnapshotFolder::SnapshotFolder(const QString& path)
    : path(path)
    , longest(longestNameIn(path) - int(std::strlen(longestEnding))) {}

QString SnapshotFolder::next(const QString& video) {
    const QString fileName = shortened(QFileInfo(video).fileName(), longest);
    QString name = fileName;
    for (int& number = nextNumber[fileName]; taken.contains(name);) {
        const QString ending = QLatin1Char('_') + QString::number(++number);
        name = shortened(fileName, longest - ending.size()) + ending;
    }
    taken.insert(name);
    return QDir(path).filePath(name);
}

QString snapshotPath(const QString& beginning, int index) {
    return QStringLiteral("%1-%2.png").arg(beginning, clipNumber(index));
}
