// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keptdetection.h"

#include "decision.h"

bool decideAgain(const Measurement& measurement, const SegmentationOptions& options,
                 const PictureMaker& pictures, DetectionClient& client) {
    const MotionSeries& series = measurement.series;
    Decision decision(options, measurement, pictures(0), client);
    int done = 0;
    while (done < series.times.size() && !client.isCancelled()) {
        const int next = done++;
        decision.add(series.scores[next], series.times[next], pictures(done));
    }
    const bool isWhole = !client.isCancelled();
    if (isWhole)
        client.endReached();
    decision.finish();
    return isWhole;
}
