// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "joborder.h"
#include "newestwork.h"

#include <QObject>
#include <QSet>

class DetectionQueue;
struct PieceOutlook;

/// Has those of a queue's recordings that wait searched the most promising first, where that is
/// asked for. Jobs themselves, and their order in the queue, stay as they are.
///
/// The recordings' packets are read beside the worker and the GUI thread, one recording after the
/// other, a minute of each at most. The search waits for none of it: what is not known yet when a
/// job is over, as of a disk that does not answer, keeps its place.
class LikeliestFirst : public QObject {
    Q_OBJECT

public:
    /// Off. `queue` must outlive it.
    explicit LikeliestFirst(DetectionQueue& queue, QObject* parent = nullptr);
    ~LikeliestFirst() override;

    /// What is known so far.
    const JobPromises& promises() const { return known; }

public Q_SLOTS:
    /// Counts from the next job on that is started. What is known stays known.
    void setOn(bool isWanted);

private Q_SLOTS:
    void lookSoon();
    void lookOn();

private:
    Video* nextUnseen() const;
    void take(const PieceOutlook& outlook);

    DetectionQueue& queue;
    bool isOn = false;
    JobPromises known;
    QSet<const Video*> seen;       ///< looked at, or being so
    const Video* inHand = nullptr; ///< whose packets are read; a name here
    NewestWork reading;
};
