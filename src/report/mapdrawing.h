// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "motionreport.h"

#include <QByteArray>

#include <vector>

/// Where motion was in these recordings, over the picture of their strongest clip, as SVG. Empty
/// where no maps of cells were kept, or nothing moved.
QByteArray mapDrawing(const std::vector<const ReportedRecording*>& recordings,
                      const MotionReport& report);
