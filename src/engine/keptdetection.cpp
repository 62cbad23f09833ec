// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keptdetection.h"

#include "decision.h"
#include "missingpicture.h"

bool decideAgain(const Measurement& measurement, const SegmentationOptions& options,
                 const PictureMaker& pictures, const std::function<bool()>& isInterrupted,
                 DetectionFindings& findings) {
    const MotionSeries& series = measurement.series;
    Decision decision(options, measurement, pictures(0), findings);
    int done = 0;
    while (done < series.times.size() && !isInterrupted()) {
        const int next = done++;
        decision.add(series.scores[next], series.times[next], pictures(done));
    }
    const bool isWhole = !isInterrupted();
    decision.finish();
    return isWhole;
}

QVector<DetectedClip> clipsOf(const Measurement& measurement, const SegmentationOptions& options) {
    const MotionSeries& series = measurement.series;
    ClipSegmenter segmenter(options, measurement.stream.origin, measurement.firstTime, noPicture());
    QVector<DetectedClip> clips;
    for (int i = 0; i < series.times.size(); ++i) {
        if (const auto clip = segmenter.addFrame(series.scores[i], series.times[i], noPicture()))
            clips.append(*clip);
    }
    if (const auto clip = segmenter.finish())
        clips.append(*clip);
    return clips;
}
