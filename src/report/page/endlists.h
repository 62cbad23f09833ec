// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reportstrips.h"

#include <QByteArray>

/// The recordings of which nothing stands above, in lists: those without motion, with their strips,
/// those that could not be read, and those that were not searched.
QByteArray endLists(const MotionReport& report, const ReportStrips& strips);

/// Whether the recording is listed as one without motion.
bool isQuiet(const ReportedRecording& recording);

/// Its identifier in the page; `place`: in the report.
QByteArray quietId(int place);
