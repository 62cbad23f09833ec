// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "sessionkeeper.h"

#include <QList>
#include <QObject>

#include <memory>

class ClipListWidget;
class DetectionQueue;
class ResumedSearches;
class SessionOffer;
class SessionRestore;
class Video;

/// Keeps what is listed from one run of the program to the next. The last session stays as it is
/// until a person has gone on with it, or has had the first recording of a new one accepted.
class SessionControl : public QObject {
    Q_OBJECT

public:
    /// All must outlive it.
    SessionControl(DetectionQueue& queue, ClipListWidget& list, ResumedSearches& resumed,
                   SessionOffer& offer);

    /// Keeps what has changed, for the last time.
    ~SessionControl() override;

Q_SIGNALS:
    void told(const QString& notice);

private Q_SLOTS:
    void offerLast(int recordings, int clips);
    void goOn();
    void restore(const SavedSession& session);
    void endRestoring();
    void watch(const QList<Video*>& jobs);

private:
    void watchList();

    DetectionQueue& queue;
    ClipListWidget& list;
    ResumedSearches& resumed;
    SessionOffer& offer;
    SessionKeeper keeper;
    int offeredRecordings = 0;
    int offeredClips = 0;
    std::unique_ptr<SessionRestore> restoring;
};
