// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <mutex>

/// The folders that the clips of one call's recordings are exported into, one for each recording.
///
/// They are named when the call begins, in the order of the recordings, so that --jobs does not
/// change them, and made when the first clip is there. Any thread may call anything.
class ClipFolders {
public:
    /// `directory` is there already; empty: no folder is asked for.
    ClipFolders(const QString& directory, const QStringList& videos);

    struct Made {
        QString path;    ///< absolute; empty if it could not be made
        QString failure; ///< why not, for a person
    };

    /// Makes the folder of the recording at `recording`, once. Where somebody else has taken its
    /// name since the call began, it gets the next one that is free.
    Made make(int recording);

private:
    QString nextFreeName(const QString& video);

    std::mutex mutex;
    QString directory;
    QStringList videos;
    int longestName = 0;
    QStringList names;
    QVector<bool> areMade;
    QSet<QString> taken;            ///< by recordings of this call
    QHash<QString, int> nextNumber; ///< to be tried, by the name with number 0
};
