// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QSet>
#include <QString>

#include <mutex>

struct Recording;

/// The folders that the clips of one call's recordings are exported into, one for each recording.
///
/// They are named when the call begins, in the order of the recordings, so that --jobs does not
/// change them, and made when the first clip is there.
class ClipFolders {
public:
    /// `directory` is there already; empty: no folder is asked for.
    explicit ClipFolders(const QString& directory);

    /// Names the folder for the next recording's clips.
    QString next(const QString& video);

    struct Made {
        QString path;    ///< absolute; empty if it could not be made
        QString failure; ///< why not, for a person
    };

    /// Makes the folder of the recording, which was not made yet. Where somebody else has taken its
    /// name since the call began, it gets the next one that is free. On any thread.
    Made make(Recording& recording);

private:
    std::mutex mutex;
    QString directory;
    int longestName = 0;
    QSet<QString> taken;            ///< by recordings of this call
    QHash<QString, int> nextNumber; ///< to be tried, by the name with number 0
};
