// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// Bits per second for a bitrate in megabits per second, a megabit being 1,048,576 bits.
///
/// 10240 at the least, 104857600 at the most. What does not fit 32 bits, and what is not a number,
/// counts as too small.
int bitsPerSecond(double megabits);
