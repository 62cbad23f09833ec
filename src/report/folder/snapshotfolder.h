// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QSet>
#include <QString>

/// Names the pictures of clips in one folder: NAME-0000.png and so on.
///
/// NAME is the recording's file name; where recordings of several folders share it, the second one
/// becomes NAME_1, the third NAME_2. Where the file system takes no name so long, NAME's end
/// becomes a short sum of all of it, the same in every call.
class SnapshotFolder {
public:
    explicit SnapshotFolder(const QString& path);

    /// What the paths of the next recording's pictures begin with.
    QString next(const QString& video);

private:
    QString path;
    int longest; ///< bytes of NAME
    QSet<QString> taken;
    QHash<QString, int> nextNumber; ///< to be tried, by name
};

/// The path of the picture of clip `index` (0 or more), where those of its recording begin so.
QString snapshotPath(const QString& beginning, int index);
