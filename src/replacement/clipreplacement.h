// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "discardedclips.h"
#include "newestwork.h"
#include "searchoptions.h"
#include "usereport.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <deque>
#include <memory>

class Clip;
class ClipExchange;
class HeldView;
class QListWidget;
class DetectionQueue;
class RecordingDecision;
class Video;
struct DetectedClip;

/// Replaces listed clips by what other options find, one recording after the other.
///
/// Clips with the same times stay as they are, and so do those that are exported or will be. New
/// ones have numbers that no clip of their recording ever had, and are listed when their picture
/// was found, off the GUI thread. They are not exported by themselves: who tunes tries.
class ClipReplacement : public QObject {
    Q_OBJECT

public:
    /// Both must outlive it.
    ClipReplacement(QListWidget& list, DetectionQueue& queue, QObject* parent = nullptr);
    ~ClipReplacement() override;

    /// Of jobs that are over; others are left alone.
    void use(const QList<Video*>& jobs, const DecidingOptions& options);

    /// Takes back the last use that was not taken back yet.
    void undo();

    bool isUndoable() const { return !exchanges.empty(); }

    /// Whether recordings are still to be decided on, or pictures to be found.
    bool isBusy() const { return !tasks.empty(); }

Q_SIGNALS:
    void changed(); ///< the list, or whether something can be taken back

    /// How far it is with many recordings, what came of it, and why clips stay as they are.
    void told(const QString& notice);

private Q_SLOTS:
    void goOn();
    void forgetSuperseded();
    void putBack();
    void giveUp();

private:
    /// A recording whose clips are to be replaced.
    struct Task {
        Video* video;
        DecidingOptions options;
        std::shared_ptr<ClipExchange> exchange;
        std::shared_ptr<RecordingDecision> decision;
        std::deque<DetectedClip> missing; ///< clips that have their numbers and no picture yet
        bool isDecided = false;
        bool isSeen = false; ///< of its clips some were in view
    };

    void decide(Task& task);
    void takeDecision();
    QString hindranceOf(const Task& task) const;
    void exchangeClips(Task& task);
    QList<Clip*> clipsOf(const Video& video) const;
    void findPicture(Task& task);
    void listNext(const QImage& picture);
    std::unique_ptr<HeldView> viewBeside(const Task& task);
    void leave(const QString& reason);
    void endTask();
    void tell(const QString& notice);
    template<class IsDropped>
    void drop(const IsDropped& isDropped);
    void forgetOldest();
    void forgetEmpty(); ///< uses with nothing to take back

    QListWidget& list;
    DetectionQueue& queue;
    DiscardedClips discarded;
    std::deque<std::shared_ptr<ClipExchange>> exchanges; ///< the newest last
    std::deque<std::shared_ptr<ClipExchange>> undone;    ///< not all is as before them yet
    QTimer undoTimer;                                    ///< runs meanwhile
    std::deque<Task> tasks;                              ///< the first one is at work
    UseReport report;                                    ///< of those since there was none
    QPointer<Clip> heldClip;                             ///< stays where it is in the view
    NewestWork work;
};
