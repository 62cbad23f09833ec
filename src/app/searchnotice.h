// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QObject>

class DetectionQueue;
class Video;

/// Has the desktop tell a person who looks elsewhere that a long search has ended. Where the
/// desktop has no place for that, nothing is told.
class SearchNotice : public QObject {
    Q_OBJECT

public:
    /// `queue` must outlive it. Searches are long from `leastMilliseconds` on.
    explicit SearchNotice(DetectionQueue& queue, int leastMilliseconds = 60000);

private Q_SLOTS:
    void begin(const QList<Video*>& jobs);
    void takeEnd();

private:
    void tell() const;

    DetectionQueue& queue;
    const int leastMilliseconds;
    QElapsedTimer sinceBegin; ///< invalid while nothing is searched
    QList<Video*> searched;   ///< since then
};
