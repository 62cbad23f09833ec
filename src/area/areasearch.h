// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "area.h"
#include "backgroundthread.h"
#include "detectionoptions.h"
#include "measurement.h"

#include <QObject>
#include <QVector>

#include <atomic>
#include <memory>
#include <optional>

class Video;

/// Seconds from the recording's first picture.
struct ClipSpan {
    double start = 0.0;
    double end = 0.0;
};

/// Which of the clips have motion inside the area, by the maps of changed cells: a value of the
/// area, as it is when the whole recording is searched there, that reaches the threshold of cells.
/// Quicker with more `threads` (`seriesOf`).
QVector<bool> motionInArea(const Measurement& measurement, const RegionOfInterest& area,
                           const CellOptions& options, const QVector<ClipSpan>& clips,
                           int threads = 1);

/// A recording that is asked about.
struct AreaRecording {
    Video* job = nullptr; ///< by which it is told; nothing is read from it
    QString video;
    DetectionOptions options; ///< it was searched with
    QVector<QRect> excluded;  ///< pixels
    QVector<ClipSpan> clips;
};

/// What is found of one.
struct AreaAnswer {
    Video* job = nullptr;
    bool hasMaps = false;
    bool isSameSize = false;   ///< its pictures are as large as those that the area was drawn on
    QVector<ClipSpan> clips{}; ///< those that were asked about
    QVector<bool> isMoving{};  ///< each of them; empty unless both
};

/// Asks recordings, one after the other and beside the event loop, which of their clips have motion
/// inside an area. The newest question is the one that counts.
class AreaSearch : public QObject {
    Q_OBJECT

public:
    AreaSearch();
    ~AreaSearch() override;

    /// Answers to the last question that have not come do not come any more. False if there is no
    /// thread to search on.
    bool ask(const Area& area, const QVector<AreaRecording>& recordings);

    /// Asks nothing any more, and lets go of what was read.
    void forget();

Q_SIGNALS:
    void answered(const AreaAnswer& answer);
    void ended();

private:
    /// The recording that was read last, for the next question: of the background thread.
    struct Last {
        Video* job = nullptr;
        std::optional<Measurement> measurement;
    };

    static AreaAnswer answerFor(const Area& area, const AreaRecording& recording, Last& last);

    std::shared_ptr<std::atomic<int>> newest; ///< question, by number
    std::shared_ptr<Last> last;
    BackgroundThread thread;
};
