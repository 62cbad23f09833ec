// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// How many bytes a file name in `directory` may have; 255 where that is not known.
int longestNameIn(const QString& directory);

/// How many bytes `name` has in the file system.
int nameLength(const QString& name);

/// As many whole characters from the beginning of `name` as `longest` bytes hold; takes no longer
/// for a name of any length. `longest` may be negative: nothing fits.
QString fittingBeginning(const QString& name, int longest);
