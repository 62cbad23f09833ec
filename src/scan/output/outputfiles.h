// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "writing.h"

#include <QFile>
#include <QImage>
#include <QString>

/// Where a call's output may go, and what is put there.

/// Whether `path` itself, whatever is above it, is a symbolic link of another user. Ours, and those
/// of the system such as /dev/stdout, are there because somebody who may do all that we may wanted
/// them; in a folder that is shared anybody may have put the others where our files are expected.
bool isForeignLink(const QString& path);

/// Makes the folder, and those above it, where they are missing, and checks that files can be put
/// into it. Links of other users are refused, with FolderLink::Refused all links. Answers why not,
/// for a person; empty after a success.
QString prepareFolder(const QString& path, FolderLink link = FolderLink::Followed);

/// Opens `file` by its name, to be written as the search goes on: an older one is emptied, pipes
/// and devices are written to. A link is followed unless it is another user's (isForeignLink).
/// Answers why it cannot be opened, for a person; empty after a success.
QString openTraceFile(QFile& file);

/// Writes `picture` as PNG to `path`, as a whole file. Answers why it could not be written, for a
/// person; empty after a success.
QString writePictureFile(const QImage& picture, const QString& path, FolderLink link);
