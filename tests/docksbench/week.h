// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>

class Video;

/// The recordings of a week, and what was found in them: copies of one file that are said to be of
/// 8 hours.
class Week {
public:
    /// Copies `file` into `folder`. A clip in each recording at least.
    Week(const QString& folder, const QString& file, int recordings, int clips);

    /// A finished job for each recording. The caller owns them.
    QList<Video*> makeJobs() const;

    /// Keeps values and maps of some, as if they had been measured: of the first ones of every
    /// picture, of the others of one a second.
    void keep(const QList<Video*>& jobs) const;

    int clipsOfRecording() const { return clipsOfEach; }

    /// Has the job tell of its clips.
    void announceClips(Video& job) const;

private:
    double secondsBetween() const;

    QString folder;
    QStringList files;
    int clipsOfEach;
};
