// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipreplacement.h"

#include <QObject>
#include <QTimer>

class MotionDock;

/// What goes between the motion dock, the list and the queue: which recording is shown, which of
/// its clips are listed, and their replacement.
class MotionControl : public QObject {
    Q_OBJECT

public:
    /// All must outlive it.
    MotionControl(MotionDock& dock, QListWidget& list, DetectionQueue& queue,
                  QObject* parent = nullptr);

    ClipReplacement& replacement() { return clips; }

Q_SIGNALS:
    /// Clips have left the list or come to it.
    void listChanged();

private Q_SLOTS:
    void showSelected();
    void showAny();
    void use(const DecidingOptions& options, bool isForAll);
    void undo();
    void takeChange();
    void tellListed();

private:
    QList<Video*> newestJobs() const;

    MotionDock& dock;
    QListWidget& list;
    DetectionQueue& queue;
    ClipReplacement clips;
    QTimer listTimer; ///< runs while the dock is still to be told of the list
};
