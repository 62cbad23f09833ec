// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

/// Times as the encoder is told them: in whole seconds.

/// `value` without its fraction. Values that an int cannot hold give the nearest int, what is not a
/// number gives 0.
int truncatedToInt(double value);

/// Whether the encoder can cut a clip with these times (seconds from the video's first picture) out
/// of its video.
///
/// It must end behind its start and behind the first picture, and its end and its length must fit
/// the whole seconds that the encoder is told. A start before the first picture is allowed: an
/// early clip's can lie there.
bool canBeCut(double start, double end);

/// The second of the day at which a clip starts, folded into one day.
///
/// `start` in seconds from the video's first frame. `videoStart` is the wall-clock time of that
/// frame, counted in whole seconds since 1970 in UTC; null if it is not known, and the day then
/// begins with the video. Sums wrap at 32 bits; negative for a negative sum.
int secondOfDay(double start, const QDateTime* videoStart);

/// The encoder's filter that writes date and time of day into the picture's top left corner.
///
/// The time runs on from `secondOfDay` with the frames; the date stands still ("Mon Nov 16 2026").
/// Its names are English whatever the locale: the font has not every script. The encoder looks for
/// the font DejaVuSansMono.ttf in its current directory.
QString overlayFilter(const QDate& date, int secondOfDay);
