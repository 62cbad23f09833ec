// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recordingstart.h"

/// When a recording began, whence that is known, how sure it is and what is doubtful, as one line
/// for a person: "began 2026-11-22 20:30:15 +01:00, by its name (sure)".
QString startText(const RecordingStart& start);

/// What was doubtful, for a person.
QString doubtText(StartDoubt doubt);

/// "2026-11-22T20:30:15.000+01:00", in ISO 8601; UTC has Z.
QString isoText(const QDateTime& time);
