// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recordingcheck.h"

#include <QString>

class Video;

/// What the row of a job says of how it stands.
struct JobStatus {
    /// In the order in which rows are sorted by it.
    enum Kind {
        WithClips,
        Found, ///< clips, of which none is listed any more
        NoMotion,
        Searching,
        Waiting,
        Cancelled,
        Unreadable,
        SearchedAgain ///< another job took its place
    };

    Kind kind = Waiting;
    int percent = 0; ///< of the file, while it is searched
    int clips = 0;   ///< that are listed
    bool isReadToItsEnd = true;
    FilePresence file = FilePresence::Same;
    bool hasClipFolder = true; ///< without one its clips would go nowhere
    QString reason;            ///< why it is unreadable, in the window's language; can be empty

    bool operator==(const JobStatus& other) const;

    bool hasEnded() const { return kind != Searching && kind != Waiting; }
};

/// Of `job`, with so many clips in the list. `isReplaced`: another job has searched its recording
/// since.
JobStatus statusOf(const Video& job, int clips, FilePresence file, bool isReplaced);

/// "searching 43 %", "3 clips, not read to its end".
QString statusText(const JobStatus& status);

/// How many recordings there are of each kind. Those that were searched again count once.
struct JobTotals {
    int all = 0;
    int withClips = 0;
    int without = 0;
    int unreadable = 0;
    int cancelled = 0;
    int unfinished = 0;

    void add(const JobStatus& status);

    /// "62: 12 with clips, 44 without, 6 unreadable"; empty where there are none.
    QString text() const;
};
