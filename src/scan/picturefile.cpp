// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "picturefile.h"

#include "writing.h"

#include <QBuffer>
#include <QSaveFile>

QString writePictureFile(const QImage& picture, const QString& path) {
    QBuffer png;
    if (!png.open(QIODevice::WriteOnly) || !picture.save(&png, "PNG"))
        return QStringLiteral("it cannot be encoded");
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeAll(file, png.data()))
        return file.errorString();
    QString failure = syncToDisk(file);
    if (!failure.isEmpty())
        return failure;
    return file.commit() ? QString() : file.errorString();
}
