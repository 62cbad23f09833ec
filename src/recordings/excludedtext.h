// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QRect>
#include <QString>
#include <QVector>

#include <optional>

/// The rectangles that `text` names, as in "600,200,300x240; 0,0,100x50": left, top, width and
/// height of each in whole pixels, the last two at least 1. Nothing if it says anything else; an
/// empty text names none.
std::optional<QVector<QRect>> rectanglesOf(const QString& text);

/// The text that names them.
QString rectanglesText(const QVector<QRect>& rectangles);
