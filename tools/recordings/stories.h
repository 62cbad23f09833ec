// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QPainter;

/// What happens in front of a camera: each draws second `t` of its story, 1280x720.
void paintGarden(QPainter& painter, double t);
void paintGate(QPainter& painter, double t);
void paintNight(QPainter& painter, double t);

/// How bright it is at second `t`; 1 is the scene as it was painted.
double gardenLight(double t);
double gateLight(double t);
double nightLight(double t);
