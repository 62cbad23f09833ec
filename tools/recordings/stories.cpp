// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stories.h"

#include "demoscene.h"
#include "visitors.h"

#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace {

struct Place {
    double x;
    double y;
    double scale;
};

/// `from` until second `start`, `to` from second `end` on, evenly between.
double between(double t, double start, double end, double from, double to) {
    return from + (to - from) * std::clamp((t - start) / (end - start), 0.0, 1.0);
}

/// A swing to both sides, `perSecond` times a second.
double swing(double t, double perSecond, double size) {
    return size * std::sin(2.0 * M_PI * perSecond * t);
}

/// One short flick of the tail every `period` seconds.
double flick(double t, double period, double size) {
    constexpr double length = 0.32;
    const double phase = std::fmod(t, period);
    return phase < length ? size * std::sin(M_PI * phase / length) : 0.0;
}

void cat(QPainter& painter, const Place& at, double step, double tail) {
    painter.save();
    painter.translate(at.x, at.y);
    painter.scale(at.scale, at.scale);
    paintCat(painter, step, tail);
    painter.restore();
}

void walker(QPainter& painter, const Place& at, double step) {
    painter.save();
    painter.translate(at.x, at.y);
    painter.scale(at.scale, at.scale);
    paintWalker(painter, step);
    painter.restore();
}

} // namespace

/// A cat strolls in, sits for five seconds with only its tail moving, and runs off.
void paintGarden(QPainter& painter, double t) {
    paintYard(painter);
    if (t < 5.0 || t > 15.0)
        return;
    if (t < 9.0)
        cat(painter, {between(t, 5.0, 9.0, -300.0, 560.0), 640.0, 2.6}, swing(t, 2.0, 12.0), 0.0);
    else if (t < 14.0)
        cat(painter, {560.0, 640.0, 2.6}, 0.0, flick(t - 9.0, 0.8, 60.0));
    else
        cat(painter, {between(t, 14.0, 14.9, 560.0, 1600.0), 640.0, 2.6}, swing(t, 4.0, 16.0), 0.0);
}

/// A cloud passes after the cat.
double gardenLight(double t) {
    return t < 17.0 || t > 23.0 ? 1.0 : 1.0 - 0.25 * std::sin(M_PI * (t - 17.0) / 6.0);
}

/// Someone comes, stands still for six seconds and goes back; then a cat crosses nearer by.
void paintGate(QPainter& painter, double t) {
    paintYard(painter);
    if (t >= 4.0 && t < 8.0)
        walker(painter, {between(t, 4.0, 8.0, 1400.0, 420.0), 600.0, 1.8}, swing(t, 1.5, 16.0));
    else if (t >= 8.0 && t < 14.0)
        walker(painter, {420.0, 600.0, 1.8}, 0.0);
    else if (t >= 14.0 && t < 18.0)
        walker(painter, {between(t, 14.0, 18.0, 420.0, 1400.0), 600.0, 1.8}, swing(t, 1.5, 16.0));
    if (t >= 20.0 && t < 25.0)
        cat(painter, {between(t, 20.0, 25.0, -300.0, 1600.0), 690.0, 2.0}, swing(t, 2.0, 12.0),
            swing(t, 1.0, 10.0));
}

/// The evening sun comes out at once.
double gateLight(double t) {
    return t < 27.0 ? 0.9 : 1.15;
}

/// Someone walks off, a lamp goes on, and a cat comes and stays.
void paintNight(QPainter& painter, double t) {
    paintYard(painter);
    if (t < 3.5)
        walker(painter, {between(t, 0.0, 3.5, 500.0, 1400.0), 640.0, 2.0}, swing(t, 1.5, 16.0));
    if (t >= 12.0)
        cat(painter, {between(t, 12.0, 15.0, -300.0, 640.0), 650.0, 2.6},
            t < 15.0 ? swing(t, 2.0, 12.0) : 0.0, swing(t, 1.5, 60.0));
}

double nightLight(double t) {
    return t < 8.0 ? 0.55 : 1.0;
}
