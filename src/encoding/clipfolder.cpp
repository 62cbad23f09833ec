// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipfolder.h"

#include "namelength.h"

#include <QDir>
#include <QFileInfo>

QString clipFolderName(const QString& fileName, int number, int longest) {
    const QFileInfo file(fileName);
    QString baseName = file.baseName();
    QString suffix = file.suffix();
    // All at once: a file name may hold a "%3" of its own.
    const auto joined = [&] {
        return QStringLiteral("%1_%2_%3").arg(baseName, suffix, QString::number(number));
    };
    while (nameLength(joined()) > longest && !(baseName + suffix).isEmpty())
        chopCharacter(baseName.isEmpty() ? suffix : baseName);
    return joined();
}

QString makeClipFolder(const QString& fileName, const QString& exportDirectory) {
    const QDir directory(exportDirectory);
    const int longest = longestNameIn(exportDirectory);
    QString name;
    int number = 0;
    do {
        name = clipFolderName(fileName, number++, longest);
    } while (directory.exists(name));
    directory.mkpath(name);
    return directory.absoluteFilePath(name);
}
