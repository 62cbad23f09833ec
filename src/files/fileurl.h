// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

/// Names of files where URLs are written. Bytes are those of QFile::encodeName.

/// A path in a URL or a reference: every byte encoded that is no letter, digit, or one of "-._~/".
QByteArray encodedPath(const QString& path);

/// The "file:" URL of an absolute path, so encoded.
QByteArray encodedFileUrl(const QString& path);

/// The URL with which the desktop opens a file, given by its absolute path: "file:///" and the path
/// as it stands. Only what would end the path or mean other characters is encoded.
QUrl fileUrl(const QString& path);
