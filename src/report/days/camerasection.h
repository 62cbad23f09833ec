// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cameras.h"
#include "reportstrips.h"

#include <QByteArray>

/// The section of a camera: its days below each other, its hours, where
/// motion was, the clips of each day, and its recordings.
QByteArray cameraSection(const PagePart& part, const MotionReport& report,
                         const ReportStrips& strips);
