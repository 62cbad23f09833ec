// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>

class Video;

/// How far a batch of jobs has come, in bytes.
struct BatchProgress {
    qint64 bytesRead = 0;
    qint64 fileSize = 0;
    bool isActive = false; ///< a job waits or runs

    /// The share read in percent, truncated; `fileSize` must be greater than 0.
    int percent() const;
};

/// Adds up `batch`, the jobs of `videos` that were waiting or running since it was last empty.
///
/// Jobs that wait or run join it; jobs that end stay in it, so that the share never falls, until
/// all have ended: the batch is then emptied.
BatchProgress updateBatch(const QList<Video*>& videos, QList<Video*>& batch);
