// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <string_view>

/// Names of files: what they tell, how long they may be, and how URLs hold them.

/// Whether a file of that name (bytes, with or without folders) is looked at where a whole folder
/// is: its extension is one of recordings, in whatever case.
bool isVideoName(std::string_view name);

/// How many bytes a file name in `directory` may have; 255 where that is not known.
int longestNameIn(const QString& directory);

/// How many bytes `name` has in the file system.
int nameLength(const QString& name);

/// As many whole characters from the beginning of `name` as `longest` bytes hold; takes no longer
/// for a name of any length. `longest` may be negative: nothing fits.
QString fittingBeginning(const QString& name, int longest);

/// A path in a URL or a reference: every byte, as QFile::encodeName has it, encoded that is no
/// letter, digit, or one of "-._~/".
QByteArray encodedPath(const QString& path);

/// The "file:" URL of an absolute path, so encoded.
QByteArray encodedFileUrl(const QString& path);

/// The URL with which the desktop opens a file, given by its absolute path: "file:///" and the path
/// as it stands. Only what would end the path or mean other characters is encoded.
QUrl fileUrl(const QString& path);
