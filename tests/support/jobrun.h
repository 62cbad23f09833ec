// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "segmentation.h"
#include "video.h"

#include <QObject>
#include <QVector>

#include <functional>

/// Runs a job on the calling thread and takes down what it tells, in its order.
class JobRun : public QObject {
    Q_OBJECT

public:
    explicit JobRun(Video& job)
        : job(job) {
        connect(&job, SIGNAL(newClip(int, QImage, double, double, double)),
                SLOT(takeClip(int, QImage, double, double, double)));
        connect(&job, SIGNAL(resultReady()), SLOT(takeResult()));
        connect(&job.news, SIGNAL(measured(QVector<float>, QVector<double>)),
                SLOT(takeMeasured(QVector<float>)));
    }

    QVector<DetectedClip> clips;
    QVector<int> statesAtClips;
    QVector<int> statesAtResult;
    QVector<float> values; ///< of the detector that decides
    std::function<void()> onClip;
    std::function<void()> onValues;

public Q_SLOTS:
    void takeClip(int index, const QImage& snapshot, double start, double end,
                  double snapshotTime) {
        clips.append({index, snapshot, start, end, snapshotTime});
        statesAtClips.append(job.state);
        if (onClip)
            onClip();
    }

    void takeResult() { statesAtResult.append(job.state); }

    void takeMeasured(const QVector<float>& some) {
        values += some;
        if (onValues)
            onValues();
    }

private:
    Video& job;
};
