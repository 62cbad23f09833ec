// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backgroundthread.h"
#include "jobstatus.h"

#include <QList>
#include <QObject>
#include <QTimer>

#include <map>
#include <memory>

class DetectionQueue;

/// Looks whether the files of recordings are still what they were when they were searched: in the
/// background, when it is asked to, and once a minute while somebody wants to know.
class RecordingsWatch : public QObject {
    Q_OBJECT

public:
    /// `queue` must outlive it.
    explicit RecordingsWatch(DetectionQueue& queue, QObject* parent = nullptr);
    ~RecordingsWatch() override;

    /// Looks at this one, soon.
    void check(Video* job);

    /// Looks at all from now on, at once and once a minute; false: no more.
    void setWanted(bool isWanted);

Q_SIGNALS:
    void found(Video* job, FilePresence presence);

private Q_SLOTS:
    void watch(const QList<Video*>& jobs);
    void checkAll();
    void stampEnded();

private:
    class Files;
    struct Look;

    void look(const QList<Video*>& jobs);

    DetectionQueue& queue;
    std::shared_ptr<Files> files; ///< of the background thread
    std::weak_ptr<Look> looking;  ///< there while it goes on
    BackgroundThread thread;
    QTimer timer;
};
