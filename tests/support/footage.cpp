// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "footage.h"

#include <QDir>
#include <QtTest>

QString recordingsDirectory() {
    return QStringLiteral(KESTROVA_RECORDINGS);
}

QString footageDirectory() {
    const QString path = qEnvironmentVariable("KESTROVA_FOOTAGE");
    return !path.isEmpty() && QDir(path).exists() ? QDir(path).absolutePath() : QString();
}

QFileInfoList footageFiles() {
    QFileInfoList files;
    if (footageDirectory().isEmpty())
        return files;
    for (const QFileInfo& file : QDir(footageDirectory()).entryInfoList(QDir::Files)) {
        if (file.suffix() != QLatin1String("md") && file.suffix() != QLatin1String("py"))
            files += file;
    }
    return files;
}

QStringList recordingsIn(const QString& folder) {
    return QDir(folder).entryList({"*.avi", "*.mp4", "*.mkv", "*.mpg", "*.flv", "*.ts", "*.mov"});
}

void addFoldersOfRecordings() {
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("count");
    QTest::newRow("shipped") << recordingsDirectory() << 3;
    QTest::newRow("footage") << footageDirectory() << 11;
}
