// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>
#include <QtGlobal>

/// How far a scan is, over all its recordings.
struct Progress {
    double share = 0.0;   ///< of all bytes, 0 to 1; negative if unknown
    int clips = 0;        ///< found so far
    double seconds = 0.0; ///< of recordings, done so far
};

/// The line on standard error that shows how far a scan is. Silent where that is no terminal.
class ProgressLine {
public:
    /// `isWanted`: false keeps it silent on a terminal, too. Speeds count from here.
    explicit ProgressLine(bool isWanted);

    /// Shows `progress`, a few times a second at the most.
    void show(const Progress& progress);

    /// Takes the line away, before something else is printed.
    void clear();

private:
    bool isShown;
    bool isDirty = false;
    QElapsedTimer sinceStart;
    QElapsedTimer sinceShown;
};
