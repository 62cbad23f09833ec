// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cameras.h"

#include <QByteArray>

/// How many of the clips begin in each hour of the day, as SVG. Hours in which nothing was recorded
/// on any day are hatched.
QByteArray hoursDrawing(const Camera& camera, const std::vector<ShownClip>& clips);
