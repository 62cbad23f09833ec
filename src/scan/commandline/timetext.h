// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

/// The seconds that `text` stands for: "75", "75.25", "1:15.25" or "0:01:15.25". Nothing if it is
/// none of these; minutes and seconds behind a colon are less than 60.
std::optional<double> secondsOf(const QString& text);

/// The shortest text for which secondsOf answers these seconds, 0 or more and below 1e9.
QString plainSeconds(double seconds);
