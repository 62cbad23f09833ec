// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QString>
#include <QVector>

/// The files of a folder that hold the values of parts of recordings, by their names.
class PartFiles {
public:
    /// Looks into the folder, once.
    explicit PartFiles(const QString& folder);

    /// Into how many parts the recording at this absolute path is cut, where files of all of them
    /// are there: few parts first.
    QVector<int> counts(const QByteArray& recording) const;

private:
    QString folder;
    QHash<QString, QMap<int, int>> files; ///< how many there are, by beginning of name and count
};
