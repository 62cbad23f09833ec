// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>

class QPainter;

/// What a camera over a yard sees, 1280x720: a fence, a drive to its gate, a tree.
void paintYard(QPainter& painter);

/// The yard with a cat in it.
QImage demoScene();
