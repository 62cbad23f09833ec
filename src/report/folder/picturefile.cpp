// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "picturefile.h"

#include <QBuffer>

QString writePictureFile(const QImage& picture, const QString& path, FolderLink link) {
    QBuffer png;
    if (!png.open(QIODevice::WriteOnly) || !picture.save(&png, "PNG"))
        return QStringLiteral("it cannot be encoded");
    return writeWholeFile(path, png.data(), link);
}
