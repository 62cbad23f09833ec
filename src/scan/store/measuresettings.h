// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detection.h"
#include "keptvalues.h"

#include <optional>

/// Everything in `options` that motion values depend on, as it stands in a values file.
MeasureSettings measureSettings(const DetectionOptions& options);

/// Those of them that maps of changed cells depend on, too: neither on where one looks, nor on what
/// counts as motion there.
MeasureSettings cellsSettings(const MeasureSettings& settings);

/// Whether the values are those of key frames alone.
bool areOfKeyFrames(const MeasureSettings& settings);

/// `options` as they were when values with these settings were measured, as far as single pictures
/// depend on it: not the range and not the rate. Nothing where that cannot be told, since of a mask
/// a digest is all that is kept.
std::optional<DetectionOptions> measuredWith(const MeasureSettings& settings,
                                             DetectionOptions options);

/// Which of the options named in `given` say otherwise than `kept`, as a sentence for a person;
/// empty if none does. `asked` are the settings of all options.
QString disagreement(const QStringList& given, const MeasureSettings& asked,
                     const MeasureSettings& kept);
