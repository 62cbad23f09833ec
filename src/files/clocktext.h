// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

/// Times of recordings as texts. Hours have no upper end.

/// "1:02:03" of whole seconds.
QString clockText(qint64 seconds);

/// "0:01:02.345": milliseconds, rounded; a minus sign where negative.
QString preciseClockText(double seconds);

/// "0:01:02" of a sensible time, rounded down; a minus sign where negative.
QString elapsedText(double seconds);

/// A time that can be reckoned with whatever a recording's clock says: at most 1e12 seconds to
/// either side, and 0 where it is no number.
double sensibleTime(double seconds);

/// The seconds that `text` stands for: "75", "75.25", "1:15.25" or "0:01:15.25". Nothing if it is
/// none of these; minutes and seconds behind a colon are less than 60.
std::optional<double> secondsOf(const QString& text);

/// The shortest text for which secondsOf answers these seconds, 0 or more and below 1e9.
QString plainSeconds(double seconds);
