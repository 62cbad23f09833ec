// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Folders for what is their owner's business alone.

/// Makes the folder, open to its owner alone whatever the umask says, and those above it as usual.
/// One that is there already is closed to others. Answers why it cannot be made or must not be
/// used, for a person; empty after a success.
QString makePrivateFolder(const QString& path);

/// Why a folder that may be there must not be used, for a person: it is a link, belongs to somebody
/// else or is none. Empty if it may, or is missing.
QString privateFolderFlaw(const QString& path);
