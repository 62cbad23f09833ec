// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

/// The folder that clips' pictures are written into, as NAME-0000.png and so on.
///
/// NAME is the recording's file name; where recordings of several folders share it, the second one
/// becomes NAME_1, the third NAME_2. Where the file system takes no name so long, NAME's end
/// becomes a short sum of all of it, the same in every call.
class SnapshotFolder {
public:
    SnapshotFolder(const QString& path, const QStringList& videos);

    /// The path of the picture of clip `index` (0 or more) of the recording at `recording`.
    QString pathOf(int recording, int index) const;

private:
    QString path;
    QStringList names;
};
