// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "measurement.h"

#include <QString>

#include <optional>

struct DetectionOptions;

/// What was measured of a recording with options like these, with its maps, from where it is kept.
/// Nothing where it is not, or not of the recording as it is now. Reads files: not for the GUI
/// thread. Any number of threads may ask.
std::optional<Measurement> keptMeasurement(const QString& video, const DetectionOptions& options);
