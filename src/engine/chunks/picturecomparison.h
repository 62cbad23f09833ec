// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "decodedframe.h"
#include "motionscore.h"

#include <functional>
#include <optional>

/// What comparing a picture with the one before it gives; nothing if the two cannot be compared.
using PictureComparison = std::function<std::optional<MotionScore>(const DecodedFrame& previous,
                                                                   const DecodedFrame& current)>;

/// Makes a comparison for one thread; any thread may ask for one.
using PictureComparisonMaker = std::function<PictureComparison()>;
