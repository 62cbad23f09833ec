// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// A recording as it was when clips of it were marked.
struct MarkedRecording {
    QString video; ///< its path, as the scanner had read it; neither empty nor with null characters
    qint64 bytes = 0;
    qint64 modified = 0; ///< milliseconds since 1970

    bool operator==(const MarkedRecording& other) const {
        return video == other.video && bytes == other.bytes && modified == other.modified;
    }
};

/// What of a clip lies in one of several recordings that go on in each other.
struct MarkedPart {
    int recording = 0;  ///< its place among the recordings
    double start = 0.0; ///< seconds from its first picture
    double end = 0.0;
    double offset = 0.0; ///< seconds from the first picture of the clip's recording to this one's
};

/// A clip that is to be kept.
struct MarkedClip {
    int recording = 0; ///< its place among the recordings
    int number = 0;
    double start = 0.0; ///< seconds from the recording's first picture
    double end = 0.0;   ///< the same; whether the two make sense is not judged

    /// Of one that goes on in other recordings, its own first; empty: it lies in one.
    QVector<MarkedPart> parts;
};

/// What somebody has marked in a report.
struct Marks {
    QVector<MarkedRecording> recordings; ///< of which clips are kept, each once
    QVector<MarkedClip> clips;           ///< those that are kept, in their order in the file
    QString error;                       ///< why nothing could be read, for a person
};

constexpr qint64 mostMarksBytes = 16 * 1024 * 1024; ///< of a file of marks
constexpr int mostMarks = 100000;                   ///< in one file

/// The marks that `json` holds, as a report saves them. Anything that no report saves makes all of
/// it unreadable: it was damaged, or somebody else has written it.
Marks marksOf(const QByteArray& json);

/// Those of a file, which is read up to `mostMarksBytes`.
Marks readMarks(const QString& fileName);
