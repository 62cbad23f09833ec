// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "footage.h"

#include <QDir>

QString recordingsDirectory() {
    return QStringLiteral(KESTROVA_RECORDINGS);
}

QString footageDirectory() {
    const QString path = qEnvironmentVariable("KESTROVA_FOOTAGE");
    return !path.isEmpty() && QDir(path).exists() ? QDir(path).absolutePath() : QString();
}
