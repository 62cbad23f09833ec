// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "fileurl.h"

#include <QFile>

QByteArray encodedPath(const QString& path) {
    return QFile::encodeName(path).toPercentEncoding("/");
}

QByteArray encodedFileUrl(const QString& path) {
    return "file://" + encodedPath(path);
}

QUrl fileUrl(const QString& path) {
    // QUrl decodes letters and blanks itself, but none of these.
    const QByteArray kept = "/!$&'()*+,;=:@[]";
    return QUrl::fromEncoded("file:///" + QFile::encodeName(path).toPercentEncoding(kept));
}
