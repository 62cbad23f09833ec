// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <vector>

/// The median of 1 to 2^24 numbers; of an even count, the upper one of the two in the middle. Takes
/// as long whatever they are.
int medianOf(const std::vector<std::int16_t>& numbers);
