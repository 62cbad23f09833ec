// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionoptions.h"
#include "measurement.h"

/// What is decided on where cells decide: `measured`, of which the values are those of its maps,
/// inside the region of `options`, in place of the mean's. It has no maps itself.
Measurement cellsMeasurement(const Measurement& measured, const DetectionOptions& options,
                             const CellBits& restless);

/// The cells that change through most of what was measured, where they are to be left out; else
/// none.
CellBits restlessOf(const Measurement& measured, const DetectionOptions& options);
