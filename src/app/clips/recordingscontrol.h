// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "discardedclips.h"

#include <QObject>
#include <QTimer>

class Clip;
class ClipListWidget;
class DetectionQueue;
class ListFilter;
class QMainWindow;
class RecordingsDock;
class Video;

/// What goes between the recordings' dock and the list of clips: who chooses a recording sees its
/// clips, and who chooses a clip sees its recording.
class RecordingsControl : public QObject {
    Q_OBJECT

public:
    /// All must outlive it.
    RecordingsControl(QMainWindow& window, DetectionQueue& queue, ClipListWidget& list,
                      ListFilter& filter, RecordingsDock& dock);

private Q_SLOTS:
    void followClips();
    void showClips(Video* video);
    void enterClips(Video* video);
    void showOnly(Video* video);
    void noteFilter();
    void removeClips(Video* video);
    void showFolder(Video* video);
    void watch(const QList<Video*>& jobs);
    void takeEnd();
    void countClips();

private:
    Clip* firstClip(const Video* video) const;
    void remove(const QList<Clip*>& clips);

    QMainWindow& window;
    ClipListWidget& list;
    ListFilter& filter;
    RecordingsDock& dock;
    QTimer counting; ///< until clips that come or go together are counted
    DiscardedClips discarded;
    bool isFollowing = false; ///< a clip was chosen, not a recording
};
