// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "scanoptions.h"

/// Adds a recording, or all recordings below a folder: files whose names are those of videos
/// (isVideoName). What is hidden, links to folders, and pipes and devices are left out; links to
/// files are not. Everything else is a recording, be it there or not.
void addNamed(const QString& path, Inputs& inputs);

/// Adds what the file `list` names ("-": standard input), each name ended by `separator`, the last
/// one perhaps by the end of the file. Empty lines are nothing; of empty names with null bytes it
/// warns. A file with null bytes is no list of lines, and names nothing.
void addListed(const QString& list, char separator, Inputs& inputs);
