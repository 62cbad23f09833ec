// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

/// What programs need of the system, whatever they do: libraries, their data, and facts about the
/// machine. Not all of it is on every system.
namespace systemPaths {

QStringList programs(); ///< folders: read, and run
QStringList readable(); ///< files and folders
QStringList writable(); ///< files: read and written

} // namespace systemPaths
