// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QString>

/// The name of folder `number` (0 or more) for the clips of one video: the video's base name, its
/// suffix and the number, joined by underscores: "garden_mp4_0". The base name is shortened until
/// the name fits `longest` bytes.
QString clipFolderName(const QString& fileName, int number, int longest);

/// The number to begin with, by the name with number 0: those before it were found taken.
///
/// For videos that are accepted at once for one export directory. Each of those with one name would
/// else look at the folders of all others before it.
using ClipFolderNumbers = QHash<QString, int>;

/// Makes a folder of its own for the clips of one video inside `exportDirectory`.
///
/// Its name has the first number that is free, from 0 or from where `numbers` begins, which learns
/// what was found. Answers its absolute path; whether it could be made shows only when something is
/// written into it.
QString makeClipFolder(const QString& fileName, const QString& exportDirectory,
                       ClipFolderNumbers* numbers = nullptr);

/// The number of a clip as file names hold it: at least four digits, "0003".
QString clipNumber(int index);
