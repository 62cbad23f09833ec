// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "areasearch.h"

#include "celldefaults.h"
#include "cellseries.h"
#include "keptmeasurement.h"

#include <algorithm>

namespace {

bool isMoving(const MotionSeries& series, double origin, const ClipSpan& clip) {
    const auto first =
        std::lower_bound(series.times.begin(), series.times.end(), origin + clip.start);
    const auto last = std::upper_bound(first, series.times.end(), origin + clip.end);
    const MotionThreshold threshold{float(cellsThreshold)};
    const auto begin = series.scores.begin() + (first - series.times.begin());
    return std::any_of(begin, begin + (last - first),
                       [threshold](MotionScore score) { return threshold.isReachedBy(score); });
}

CellBits restless(const Measurement& measurement, const CellOptions& options) {
    return options.isRestlessIgnored
               ? restlessOf(measurement.maps, measurement.series.times, options)
               : CellBits();
}

} // namespace

QVector<bool> motionInArea(const Measurement& measurement, const RegionOfInterest& area,
                           const CellOptions& options, const QVector<ClipSpan>& clips,
                           int threads) {
    const CellScores scores(area, measurement.stream.description.size, options,
                            restless(measurement, options));
    const MotionSeries series =
        seriesOf(measurement.maps, measurement.series.times, scores, threads);
    QVector<bool> moving;
    for (const ClipSpan& clip : clips)
        moving.append(isMoving(series, measurement.stream.origin, clip));
    return moving;
}

AreaSearch::AreaSearch()
    : newest(std::make_shared<std::atomic<int>>(0))
    , last(std::make_shared<Last>()) {}

AreaSearch::~AreaSearch() {
    ++*newest;
}

bool AreaSearch::ask(const Area& area, const QVector<AreaRecording>& recordings) {
    const int number = ++*newest;
    const auto isNewest = [newest = newest, number] { return *newest == number; };
    return thread.run(this, [=, last = last](const GuiCall& callBack) {
        for (const AreaRecording& recording : recordings) {
            if (!isNewest())
                return;
            const AreaAnswer answer = answerFor(area, recording, *last);
            callBack([this, isNewest, answer] {
                if (isNewest())
                    Q_EMIT answered(answer);
            });
        }
        callBack([this, isNewest] {
            if (isNewest())
                Q_EMIT ended();
        });
    });
}

void AreaSearch::forget() {
    ++*newest;
    thread.run(this, [last = last](const GuiCall&) { *last = Last(); });
}

AreaAnswer AreaSearch::answerFor(const Area& area, const AreaRecording& recording, Last& last) {
    if (last.job != recording.job)
        last = {recording.job, keptMeasurement(recording.video, recording.options)};
    AreaAnswer answer{recording.job};
    answer.clips = recording.clips;
    answer.hasMaps = last.measurement && last.measurement->maps.count() > 0;
    if (!answer.hasMaps)
        return answer;
    answer.isSameSize = last.measurement->stream.description.size == area.pictures;
    if (answer.isSameSize)
        answer.isMoving = motionInArea(*last.measurement, regionOf(area, recording.excluded),
                                       recording.options.cells, recording.clips, 0);
    return answer;
}
