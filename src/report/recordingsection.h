// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reportstrips.h"

#include <QByteArray>

/// The section of a recording of `report` that is on no clock: its strip,
/// and its clips. `id`: in the page.
QByteArray recordingSection(const ReportedRecording& recording, const MotionReport& report,
                            const QByteArray& id, const ReportStrips& strips);

/// How long a recording is, its clips, and when it began, as far as that is known.
QByteArray recordingFacts(const ReportedRecording& recording);

/// Its strip alone, where a threshold can be drawn.
QByteArray stripBox(const ReportedRecording& recording, const MotionReport& report,
                    const ReportStrips& strips);
