// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionoptions.h"
#include "jobrecord.h"
#include "motionreport.h"

#include <QImage>
#include <QString>
#include <QVector>

#include <vector>

class ClipListWidget;
class DetectionQueue;

/// What the window has to say in a report: a copy of what is listed, for another thread.
struct ListedReport {
    struct Clip {
        ReportedClip reported; ///< without picture and strength
        QImage picture;
    };

    struct Recording {
        JobRecord job;
        DetectionOptions options; ///< with which it was searched
        QVector<float> values;    ///< motion values of the mean
        QVector<double> times;    ///< of those pictures, as the stream counts them
        QVector<Clip> clips;
    };

    QString folder; ///< absolute
    Detector detector = Detector::Mean;
    double threshold = 0.5;
    std::vector<Recording> recordings;
};

/// Of the jobs of `queue` that no other job has replaced, with the clips of `list`.
ListedReport listedReport(const DetectionQueue& queue, const ClipListWidget& list,
                          const QString& folder);
