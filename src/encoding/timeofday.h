// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

/// The second of the day at which a clip starts, folded into one day.
///
/// `start` in seconds from the video's first frame. `videoStart` is the wall-clock time of that
/// frame, counted in whole seconds since 1970 in UTC; null if it is not known, and the day then
/// begins with the video. Sums wrap at 32 bits; negative for a negative sum.
int secondOfDay(double start, const QDateTime* videoStart);
