// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encoderpath.h"

#include <QCoreApplication>
#include <QDir>

QString encoderPath() {
    const QDir programDirectory(QCoreApplication::applicationDirPath());
    return programDirectory.absoluteFilePath(QStringLiteral("ffmpeg"));
}
