// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keptmeasurement.h"

#include "measurementcache.h"

std::optional<Measurement> keptMeasurement(const QString& video, const DetectionOptions& options) {
    const auto stamp = stampOf(video);
    auto values = stamp ? MeasurementCache::instance().find(*stamp, options) : std::nullopt;
    if (!values)
        return std::nullopt;
    return std::move(values->measurement);
}
