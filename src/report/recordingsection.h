// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "motionreport.h"

#include <QByteArray>

/// The section of a recording of `report`, at `index` there: its strip, up to `top` (stripTop), and
/// its clips.
QByteArray recordingSection(const ReportedRecording& recording, const MotionReport& report,
                            int index, double top);

/// The identifier of that section in the page.
QByteArray sectionId(int index);

/// Whether it has one; the others are listed at the end.
bool hasSection(const ReportedRecording& recording);
