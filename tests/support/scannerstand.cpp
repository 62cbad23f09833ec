// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scannerstand.h"

#include "media.h"

#include <QCoreApplication>
#include <QFile>
#include <QtDebug>

ScannerStand::ScannerStand() {
    QFile::remove(path());
    if (!QFile::copy(media::programDirectory() + "/kestrova-scan", path()))
        qWarning("cannot copy the scanner to %s", qPrintable(path()));
}

ScannerStand::~ScannerStand() {
    QFile::remove(path());
}

QString ScannerStand::path() {
    return QCoreApplication::applicationDirPath() + "/kestrova-scan";
}

bool encodeVisit(const QString& fileName, int from, int to) {
    return media::encode(
        media::crossingBox(20, from, to, "160x120") +
        QStringList{"-c:v", "libx264", "-preset", "ultrafast", "-g", "25", fileName});
}
