// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backgroundthread.h"

#include <QList>
#include <QObject>
#include <QStringList>

class DetectionQueue;
class PendingFiles;
class Video;

/// Makes ended jobs of the files that job setup has dropped since they have no picture, so that
/// everything that was added is among the recordings, with the reason. Not before a recording was
/// accepted: until then nothing takes the place of what was listed last.
class UnopenedFiles : public QObject {
    Q_OBJECT

public:
    /// Both must outlive it.
    UnopenedFiles(const PendingFiles& files, DetectionQueue& queue);

private Q_SLOTS:
    void take(const QString& path);
    void look();

private:
    DetectionQueue& queue;
    QStringList waiting;
    BackgroundThread thread;
};
