// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "batchprogress.h"

#include "video.h"

#include <QSet>

namespace {

/// Wraps: positions come out of files and can be anything.
qint64 sum(qint64 left, qint64 right) {
    return qint64(quint64(left) + quint64(right));
}

} // namespace

int BatchProgress::percent() const {
    return int(qint64(quint64(bytesRead) * 100U) / fileSize);
}

BatchProgress updateBatch(const QList<Video*>& videos, QList<Video*>& batch) {
    BatchProgress progress;
    const QSet<Video*> counted(batch.cbegin(), batch.cend());
    for (Video* video : videos) {
        const bool isUnfinished = !video->hasEnded();
        const bool isInBatch = counted.contains(video);
        if (!isInBatch && !isUnfinished)
            continue;
        if (!isInBatch)
            batch.append(video);
        progress.bytesRead = sum(progress.bytesRead, video->bytesRead);
        progress.fileSize = sum(progress.fileSize, video->fileSize);
        progress.isActive = progress.isActive || isUnfinished;
    }
    if (!progress.isActive)
        batch.clear();
    return progress;
}
