// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingmotion.h"

#include "cellsmeasurement.h"
#include "clipmerger.h"
#include "keptdetection.h"
#include "keptmeasurement.h"
#include "video.h"

#include <algorithm>

namespace {

Measurement measurementOf(const Video& video) {
    Measurement measured;
    measured.stream.origin = video.measuredSpan.origin;
    measured.firstTime = video.measuredSpan.begin;
    measured.series.times = video.frameTimes;
    measured.series.scores.resize(video.motionValues.size());
    std::transform(video.motionValues.cbegin(), video.motionValues.cend(),
                   measured.series.scores.begin(), [](float value) { return MotionScore{value}; });
    measured.hasPictures = !video.frameTimes.isEmpty();
    return measured;
}

QVector<DetectedClip> joined(const QVector<DetectedClip>& found, double gap) {
    QVector<DetectedClip> clips;
    ClipMerger merger(gap);
    for (const DetectedClip& clip : found) {
        if (const auto before = merger.add(clip))
            clips.append(*before);
    }
    if (const auto last = merger.finish())
        clips.append(*last);
    return clips;
}

bool isSame(const CellOptions& left, const CellOptions& right) {
    return left.step == right.step && left.isRestlessIgnored == right.isRestlessIgnored;
}

/// One copy of what is the same in both is enough.
void shareMemory(MotionSeries& series, const MotionSeries& other) {
    if (series.times == other.times)
        series.times = other.times;
    if (series.scores == other.scores)
        series.scores = other.scores;
}

} // namespace

DecidingOptions decidingOptionsOf(const Video& video) {
    if (video.search.deciding)
        return *video.search.deciding;
    const DetectionOptions options = video.detectionOptions();
    return {options.detector, options.segmentation, options.cells, std::nullopt};
}

RecordingMotion::RecordingMotion(const Video& video)
    : fileName(video.fileName)
    , measured(video.detectionOptions())
    , ofJob(measurementOf(video)) {}

const Measurement* RecordingMotion::valuesOf(const DecidingOptions& options) {
    return options.detector == Detector::Cells ? cells(options.cells) : means();
}

std::shared_ptr<const MotionPyramid> RecordingMotion::pyramidOf(const DecidingOptions& options) {
    const Measurement* values = valuesOf(options);
    if (!values)
        return nullptr;
    if (drawn.values == values && drawn.pyramid)
        return drawn.pyramid;
    auto pyramid = std::make_shared<MotionPyramid>();
    for (int i = 0; i < values->series.times.size(); ++i)
        pyramid->add(values->series.times[i] - values->stream.origin,
                     values->series.scores[i].value);
    drawn = {values, pyramid};
    return pyramid;
}

std::optional<QVector<DetectedClip>> RecordingMotion::clips(const DecidingOptions& options) {
    const Measurement* values = valuesOf(options);
    if (!values)
        return std::nullopt;
    // How far pictures lie apart is a matter of how they were measured.
    SegmentationOptions segmentation = options.segmentation;
    segmentation.fewestCompared = measured.segmentation.fewestCompared;
    const QVector<DetectedClip> found = clipsOf(*values, segmentation);
    return options.joiningGap ? joined(found, *options.joiningGap) : found;
}

const Measurement* RecordingMotion::means() {
    return ofJob.hasPictures ? &ofJob : keptFor(Detector::Mean, ofMean);
}

const Measurement* RecordingMotion::keptFor(Detector detector, Kept& kept) {
    if (!kept.isRead) {
        DetectionOptions wanted = measured;
        wanted.detector = detector;
        kept.measured = keptMeasurement(fileName, wanted);
        kept.isRead = true;
        if (kept.measured)
            shareMemory(kept.measured->series, ofJob.series);
    }
    return kept.measured && kept.measured->hasPictures ? &*kept.measured : nullptr;
}

/// Maps will do whatever the mean was measured with, but of two that fit one is enough.
const Measurement* RecordingMotion::maps() {
    const Measurement* source = keptFor(Detector::Mean, ofMean);
    return source ? source : keptFor(Detector::Cells, ofMaps);
}

const Measurement* RecordingMotion::cells(const CellOptions& options) {
    const Measurement* source = maps();
    if (!source || source->maps.count() == 0)
        return nullptr;
    if (ofCells && isSame(ofCells->options, options))
        return &ofCells->values;
    DetectionOptions wanted = measured;
    wanted.cells = options;
    ofCells = OfCells{options, cellsMeasurement(*source, wanted, restlessOf(*source, wanted))};
    shareMemory(ofCells->values.series, source->series);
    drawn = {};
    return &ofCells->values;
}
