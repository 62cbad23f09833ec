// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionoptions.h"
#include "keptvalues.h"

#include <optional>

constexpr char measureKey[] = "measure"; ///< the line with the number of the mean's definition

/// Everything in `options` that motion values depend on, as it stands in a values file.
MeasureSettings measureSettings(const DetectionOptions& options);

/// Those of them that maps of changed cells depend on, too: neither on where one looks, nor on what
/// counts as motion there.
MeasureSettings cellsSettings(const MeasureSettings& settings);

/// The value of a line of them; empty where there is none.
QByteArray settingOf(const MeasureSettings& settings, const QByteArray& key);

/// Whether the values are those of key frames alone.
bool areOfKeyFrames(const MeasureSettings& settings);

/// `options` as they were when values with these settings were measured, as far as single pictures
/// depend on it: not the range and not the rate. Nothing where that cannot be told, since of a mask
/// a digest is all that is kept.
std::optional<DetectionOptions> measuredWith(const MeasureSettings& settings,
                                             DetectionOptions options);
