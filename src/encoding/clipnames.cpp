// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipnames.h"

#include "filenames.h"

#include <QDir>
#include <QFileInfo>

QString clipFolderName(const QString& fileName, int number, int longest) {
    const QFileInfo file(fileName);
    const QString ending = QString::number(number);
    const int room = longest - ending.size() - 2; // its two dashes
    const QString wholeSuffix = file.suffix();
    const QString baseName = fittingBeginning(file.baseName(), room - nameLength(wholeSuffix));
    const QString suffix = fittingBeginning(wholeSuffix, room - nameLength(baseName));
    // All at once: a file name may hold a "%3" of its own.
    return QStringLiteral("%1_%2_%3").arg(baseName, suffix, ending);
}

QString makeClipFolder(const QString& fileName, const QString& exportDirectory,
                       ClipFolderNumbers* numbers) {
    const QDir directory(exportDirectory);
    const int longest = longestNameIn(exportDirectory);
    QString name = clipFolderName(fileName, 0, longest);
    int begin = 0;
    int& number = numbers ? (*numbers)[name] : begin;
    // Where the folder cannot be made, the next video gets the same name, as if alone.
    while (directory.exists(name = clipFolderName(fileName, number, longest)))
        ++number;
    directory.mkpath(name);
    return directory.absoluteFilePath(name);
}

QString clipNumber(int index) {
    constexpr int fewestDigits = 4;
    return QStringLiteral("%1").arg(index, fewestDigits, 10, QLatin1Char('0'));
}
