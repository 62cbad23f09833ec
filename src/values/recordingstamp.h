// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// A recording as the disk has it: tells whether it has changed.
///
/// The digest is that of samples: of the first and the last 4096 bytes and those at seven places
/// between, or of all of a file that is no larger than nine samples. So it costs nine reads,
/// however large the recording is; what is changed between two samples, in a file whose size and
/// time stay, goes unnoticed.
struct RecordingStamp {
    QByteArray path; ///< absolute, in the file system's bytes
    qint64 bytes = 0;
    qint64 modified = 0; ///< nanoseconds since 1970
    QByteArray digest;   ///< SHA-256 in hexadecimal digits; empty: unknown

    bool operator==(const RecordingStamp& other) const {
        return path == other.path && bytes == other.bytes && modified == other.modified &&
               digest == other.digest;
    }
};

/// The stamp of the regular file `video`, without a digest where it cannot be read; nothing where
/// there is none, as with pipes.
std::optional<RecordingStamp> stampOf(const QString& video);

/// The digest of the first `bytes` bytes of the regular file at the absolute `path`, as if they
/// were all of it; empty where they cannot be read.
QByteArray digestOf(const QByteArray& path, qint64 bytes);
