// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>
#include <QString>

#include <mutex>

/// How far a scan is, over all its recordings.
struct Progress {
    double share = 0.0;     ///< of all bytes, 0 to 1; negative if unknown
    int clips = 0;          ///< found so far
    double seconds = 0.0;   ///< of recordings, done so far
    bool isOfParts = false; ///< the share is that of the parts that were looked at, in any order
};

/// The line on standard error that shows how far a scan is. Silent where that is no terminal.
class ProgressLine {
public:
    /// `isWanted`: false keeps it silent on a terminal, too. Speeds count from here.
    explicit ProgressLine(bool isWanted);

    /// Shows `progress`, a few times a second at the most.
    void show(const Progress& progress);

    void show(const QString& step); ///< the same of what comes behind the scan

    /// Takes the line away, before something else is printed.
    void clear();

private:
    bool isShown;
    bool isDirty = false;
    QElapsedTimer sinceStart;
    QElapsedTimer sinceShown;
};

/// Everything that goes to standard error: how far the scan is, and what it says in words.
///
/// It complains of failures, which the exit status tells, too; it warns where something is not what
/// one would take it for, but all was done; and it notes what goes as it should. Any thread may
/// call anything; lines are never torn, and nothing in them steers a terminal.
class Messages {
public:
    /// `isQuiet`: complaints and warnings only.
    explicit Messages(bool isQuiet);

    /// How far the scan as a whole is.
    void showProgress(const Progress& progress);

    /// What is done behind it, and how far that is.
    void showStep(const QString& step);

    /// Makes room for a line on standard output, where both are the same terminal.
    void makeRoom();

    /// What has failed with `subject`. `reason` may have several lines.
    void complain(const QString& subject, const QString& reason) { tell(subject, reason); }

    /// What is odd about `subject`. Only its words tell it from a complaint.
    void warn(const QString& subject, const QString& text) { tell(subject, text); }

    void note(const QString& text);

private:
    void tell(const QString& subject, const QString& text);
    void write(const QString& text);

    std::mutex mutex;
    ProgressLine line;
    bool isQuiet;
};
