// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recordingstamp.h"

#include <optional>

/// The file of a recording as it was when a search of it began.
struct SearchedFile {
    RecordingStamp stamp;
    qint64 changed = 0; ///< when the file system last noted a change of it, nanoseconds since 1970
};

/// Nothing where there is no regular file. Reads samples: not for the GUI thread.
std::optional<SearchedFile> searchedFileOf(const QString& fileName);

/// Whether the file system notes no change since: its content is as it was then. Reads nothing.
bool isUntouched(const SearchedFile& file);
