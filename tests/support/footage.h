// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFileInfo>
#include <QString>
#include <QStringList>

/// The folder of the recordings that are shipped with the tests.
QString recordingsDirectory();

/// The folder of larger, real recordings that KESTROVA_FOOTAGE names; empty if it names none.
QString footageDirectory();

/// The recordings of that folder, also those that are hard to read; none if there is none.
QFileInfoList footageFiles();

/// The names of the recordings in a folder.
QStringList recordingsIn(const QString& folder);

/// Rows of a test: `folder`, and `count` recordings in it. The shipped ones, and the real ones.
void addFoldersOfRecordings();

/// Skips the running test, saying why, if the folder of a recording is not there (empty).
#define KESTROVA_REQUIRE_FOLDER(folder)                                             \
    do {                                                                            \
        if ((folder).isEmpty())                                                     \
            QSKIP("KESTROVA_FOOTAGE names no folder with larger, real recordings"); \
    } while (false)

/// Skips the running test, saying why, where there are no real recordings.
#define KESTROVA_REQUIRE_FOOTAGE() KESTROVA_REQUIRE_FOLDER(footageDirectory())
