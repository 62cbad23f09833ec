// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "discardedclips.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>

#include <optional>

class Clip;
class ClipListWidget;
class DetectionQueue;
class Video;

/// Recordings that are searched once more from their beginning, because a search of theirs did not
/// come to its end. What it had found stays in the list: it is not listed a second time, its
/// exported files are not overwritten, and what is not found again leaves the list in the end.
class ResumedSearches : public QObject {
    Q_OBJECT

public:
    /// `window` has the slot that takes jobs' clips. All must outlive it.
    ResumedSearches(QObject& window, DetectionQueue& queue, ClipListWidget& list);

    /// Clips of each job; one that a person has removed meanwhile is null.
    using ListedClips = QHash<Video*, QList<QPointer<Clip>>>;

    /// Hands jobs over to the queue, of which some may have clips in the list already.
    void add(const QList<Video*>& jobs, const ListedClips& listed);

    /// The number for a clip that a job announces; nothing if it is not to be listed.
    std::optional<int> numberOf(const Video& job, int index, double start, double end);

public Q_SLOTS:
    /// Makes a waiting job of each that was cancelled and not searched again, which stands for it
    /// from then on.
    void searchRest();

private Q_SLOTS:
    void end();

private:
    ListedClips clipsOf(const QHash<Video*, Video*>& successors) const;

    QObject& window;
    DetectionQueue& queue;
    ClipListWidget& list;
    DiscardedClips discarded;
    QHash<const Video*, QList<QPointer<Clip>>> unfound; ///< of each resumed job that has not ended
};
