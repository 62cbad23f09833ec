// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

/// A command line with the words of response files in their places.
struct ExpandedArguments {
    QStringList arguments;
    QStringList files; ///< that were read, as they were named
    QString error;     ///< why one could not be, for a person; empty: all were
};

/// Puts the words of the file NAME in the place of each of `arguments` that is "@NAME".
///
/// An option's value is no such argument, nor is what stands behind "--", be that on the command
/// line or in a file. White space separates words; '...' and "..." hold words together, and a
/// backslash makes any byte behind it an ordinary one, also in quotes. Bytes stay what they are, be
/// they UTF-8 or not.
///
/// A file has at most 16 MiB, no null bytes, and names no other response file.
ExpandedArguments expandResponseFiles(const QStringList& arguments);
