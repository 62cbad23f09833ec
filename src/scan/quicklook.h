// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detector.h"
#include "measurement.h"

#include <QString>

/// What a person is told of the gaps between the pictures of a quick look; `minimum` is the length
/// of the voting window in seconds.
QString quickNote(const Measurement& measurement, double minimum, Detector detector);
