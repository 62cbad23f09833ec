// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "searchedfile.h"

#include <QCoreApplication>
#include <QString>

#include <optional>

class Video;

/// How the file of a recording is, compared with what it was when it was searched.
enum class FilePresence { Same, Changed, Gone };

/// Whether clips can still be taken from a job's recording as it was searched. What was appended
/// since takes nothing away from them. Of a job that an older version of the program has kept its
/// size is all that is known.
class RecordingCheck {
    Q_DECLARE_TR_FUNCTIONS(RecordingCheck)

public:
    /// On the GUI thread.
    explicit RecordingCheck(const Video& job);

    /// Whether the file system alone proves that they can, without anything being read.
    bool isUntouched() const;

    /// Reads samples where the file system tells of a change: not for the GUI thread.
    FilePresence presence() const;

    /// The same as a reason not to, for a person; empty if they can be taken.
    QString flaw() const;

private:
    FilePresence presenceBySize() const;

    QString fileName;
    qint64 size; ///< bytes
    std::optional<SearchedFile> searched;
};
