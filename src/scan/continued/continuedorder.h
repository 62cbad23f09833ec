// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recording.h"

#include <vector>

/// In what order recordings are put together: their places in the call.
///
/// It is that of the call. Those alone that are named alike, with numbers of several lengths, take
/// their places by their numbers: names of a folder come as 1, 10, 2.
std::vector<std::size_t> continuedOrder(const std::vector<Recording>& recordings);
