// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Whether `path` itself, whatever is above it, is a symbolic link.
bool isLink(const QString& path);

/// Whether it is one of another user. Ours, and those of the system such as /dev/stdout, are
/// there because somebody who may do all that we may wanted them; in a folder that is shared
/// anybody may have put the others where our files are expected.
bool isForeignLink(const QString& path);
