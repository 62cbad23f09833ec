// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "wholefile.h"

#include <QString>

/// Makes the folder, and those above it, where they are missing, and checks that files can be put
/// into it. Links of other users are refused, with FolderLink::Refused all links. Answers why not,
/// for a person; empty after a success.
QString prepareFolder(const QString& path, FolderLink link = FolderLink::Followed);
