// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>
#include <QString>

/// The encoder's filter that writes date and time of day into the picture's top left corner.
///
/// The time runs on from `secondOfDay` with the frames; the date stands still ("Mon Nov 16 2026").
/// Its names are English whatever the locale: the font has not every script. The encoder looks for
/// the font DejaVuSansMono.ttf in its current directory.
QString overlayFilter(const QDate& date, int secondOfDay);
