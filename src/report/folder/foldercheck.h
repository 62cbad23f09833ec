// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "writing.h"

#include <QString>

/// Whether `path` itself, whatever is above it, is a symbolic link of another user. Ours, and those
/// of the system such as /dev/stdout, are there because somebody who may do all that we may wanted
/// them; in a folder that is shared anybody may have put the others where our files are expected.
bool isForeignLink(const QString& path);

/// Makes the folder, and those above it, where they are missing, and checks that files can be put
/// into it. Links of other users are refused, with FolderLink::Refused all links. Answers why not,
/// for a person; empty after a success.
QString prepareFolder(const QString& path, FolderLink link = FolderLink::Followed);
