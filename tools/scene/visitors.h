// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QPainter;

/// A cat that looks to the right, 200x110, its feet around (0, 0).
///
/// `step` moves its legs and `tail` the end of its tail, both in pixels; 0 is at rest.
void paintCat(QPainter& painter, double step = 0.0, double tail = 0.0);

/// Someone in a striped pullover, 80x245, the feet around (0, 0). `step` is how far the feet are
/// apart.
void paintWalker(QPainter& painter, double step = 0.0);
