// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSize>

/// A positive fraction; its numerator is 0 where it is unknown.
struct Ratio {
    int numerator = 0;
    int denominator = 1;
};

/// What a recording's headers say of its pictures, for programs that play it.
struct StreamDescription {
    QSize size;             ///< pixels; of the first pictures, since it may change
    Ratio pixelAspect;      ///< width of a pixel by its height
    Ratio frameRate;        ///< pictures per second, on average where they vary
    double startTime = 0.0; ///< seconds at which the file begins, as its streams count them
};
