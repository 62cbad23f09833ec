// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The name of folder `number` (0 or more) for the clips of one video: the video's base name, its
/// suffix and the number, joined by underscores: "garden_mp4_0". The base name is shortened until
/// the name fits `longest` bytes.
QString clipFolderName(const QString& fileName, int number, int longest);

/// Makes a folder of its own for the clips of one video inside `exportDirectory`.
///
/// Its name has the first number from 0 that is free. Answers its absolute path; whether it could
/// be made shows only when something is written into it.
QString makeClipFolder(const QString& fileName, const QString& exportDirectory);
