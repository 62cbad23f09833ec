// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "files.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonDocument>

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QMap<QString, QByteArray> filesIn(const QString& folder) {
    QMap<QString, QByteArray> files;
    QDirIterator all(folder, QDir::Files, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString path = all.next();
        files[QDir(folder).relativeFilePath(path)] = readFile(path);
    }
    return files;
}

bool writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush();
}

QList<QJsonObject> jsonLines(const QByteArray& text) {
    QList<QJsonObject> objects;
    for (const QByteArray& line : text.split('\n')) {
        if (!line.trimmed().isEmpty())
            objects.append(QJsonDocument::fromJson(line).object());
    }
    return objects;
}
