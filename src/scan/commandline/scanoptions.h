// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "camtrapoptions.h"
#include "clockoptions.h"
#include "detection.h"
#include "encoderarguments.h"
#include "recapoptions.h"
#include "recordingpart.h"
#include "selectionoptions.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <limits>
#include <optional>

/// In the order of the words that --format takes.
enum class ReportFormat { Text, JsonLines, Csv, M3u, Mpv, Cuts, Edl, Mlt, CamtrapDp };

/// How clips are exported.
struct ExportOptions {
    QString directory; ///< empty: no export
    EncodingSettings encoding;
    bool areTimesWritten = false; ///< into the pictures of recordings whose start is known
};

/// What is wrong with a list of recordings or a folder of them.
struct InputComplaint {
    QString subject; ///< the list or the folder
    QString reason;
    bool isFailure = true; ///< false: a warning, no reason to fail
};

/// Recordings, told by files, folders and lists.
struct Inputs {
    QStringList videos; ///< they, or values in their place: as the person wrote them, or as lists
                        ///< name them and folders hold them, those of one folder sorted by bytes
    QStringList places; ///< files and folders in which these are, after all links
    QVector<InputComplaint> complaints; ///< about lists and folders, not yet told
};

/// How much is looked at before a search by likelihood ends.
struct SearchLimit {
    double share = 1.0;                                       ///< of all recordings' length, 0 to 1
    double seconds = std::numeric_limits<double>::infinity(); ///< on the wall's clock
};

/// What one call of the scanner is asked to do.
struct ScanOptions {
    Inputs inputs;
    DetectionOptions detection;
    bool isRefined = false;            ///< what key frames show is searched exactly
    std::optional<RecordingPart> part; ///< is measured alone, of each; empty: all of it
    bool isPromisingFirst = false;     ///< the likeliest parts of all recordings are measured first
    std::optional<double> partSeconds; ///< longest of the parts that are named; empty: none are
    std::optional<SearchLimit> limit;  ///< to that; empty: all is looked at
    std::optional<double> mergeGap;    ///< seconds between clips that become one; empty: none do
    SelectionOptions selection;        ///< once they are merged

    /// Seconds that may lie between two recordings of which one goes on in the other; empty: each
    /// is decided on by itself.
    std::optional<double> continuing;
    ReportFormat format = ReportFormat::Text;
    QString snapshotDirectory; ///< empty: no snapshots
    QString reportDirectory;   ///< empty: no report
    ExportOptions exporting;
    ClockOptions clock;
    CamtrapOptions camtrap;
    RecapOptions recap;
    QString marksFile;           ///< names the clips, in place of a search; empty: there is none
    QString traceFile;           ///< empty: no trace
    QString valuesDirectory;     ///< empty: no motion values are kept
    bool isMissingAsked = false; ///< names are those of recordings without kept values
    QStringList givenOptions;    ///< names of those that a person gave
    int jobs = 1;                ///< recordings scanned side by side, 1 or more
    bool quiet = false;          ///< no progress and no summary on standard error
    bool isVerbose = false;      ///< more than that: why recordings go on in others or do not
};

/// The scanner's exit statuses. After SomeUnreadable alone it makes no sense to try again: all was
/// done, but the bytes of a recording are at fault. SomeFailed wins over it.
enum ExitStatus {
    AllDone = 0,
    SomeFailed = 1,
    BadCommandLine = 2,
    SomeUnreadable = 3,
    Interrupted = 130
};
