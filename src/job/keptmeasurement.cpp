// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keptmeasurement.h"

#include "detection.h"

std::optional<Measurement> keptMeasurement(const QString& video, const DetectionOptions& options) {
    class Nobody : public DetectionProgress {
        bool isCancelled() override { return false; }
        void positionChanged(qint64, bool) override {}
    } nobody;
    DetectionOptions wanted = options;
    wanted.areMapsKept = true;
    Detection detection(wanted, nobody);
    if (detection.run(video).outcome != DetectionOutcome::Finished)
        return std::nullopt;
    return detection.measurement();
}
