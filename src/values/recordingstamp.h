// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// A recording as the disk has it: tells whether it has changed.
struct RecordingStamp {
    QByteArray path; ///< absolute, in the file system's bytes
    qint64 bytes = 0;
    qint64 modified = 0; ///< nanoseconds since 1970

    bool operator==(const RecordingStamp& other) const {
        return path == other.path && bytes == other.bytes && modified == other.modified;
    }
};

/// The stamp of the regular file `video`; nothing where there is none, as with pipes.
std::optional<RecordingStamp> stampOf(const QString& video);
