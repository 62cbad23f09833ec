// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orderedoutput.h"
#include "recordingstart.h"
#include "watchedrecording.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

struct ReportedRecording;

/// One recording of a call: what it is, how far it is, and where goes what is said of it.
///
/// All of a call are there, named and in its order, before the first one is begun. From then on
/// each belongs to the thread that scans it.
struct Recording {
    int place = 0;      ///< in the call, 0 for the first
    QString video;      ///< as the person wrote it, or as the values have it that were named
    QString path;       ///< absolute: no colons in it are a protocol to the media libraries
    QString valuesFile; ///< that was named in its place; empty: it was named itself

    /// Of it before it was read; nothing: it is no regular file, or the values were named.
    std::optional<RecordingStamp> stamp;
    std::optional<WatchedRecording> watched; ///< nothing: it is no regular file, or not begun with

    RecordingStart start; ///< unknown: none was given, found or looked for yet

    qint64 bytes = 0; ///< its size; 0 where it is no file
    qint64 read = 0;  ///< bytes of it, so far

    QString snapshots;                       ///< its pictures' paths begin so (SnapshotFolder)
    QString reportPictures;                  ///< the same of those in the report
    QString clipFolder;                      ///< name of the folder for its clips (ClipFolders)
    OrderedOutput::Section* clips = nullptr; ///< what is printed of it
    OrderedOutput::Section* trace = nullptr; ///< null: none is wanted
    ReportedRecording* reported = nullptr;   ///< null: no report is wanted
};

/// Those that `names` name: recordings, and values in their place.
std::vector<Recording> recordingsOf(const QStringList& names);
