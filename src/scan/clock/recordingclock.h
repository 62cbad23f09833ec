// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clockoptions.h"
#include "messages.h"
#include "recording.h"

#include <functional>
#include <vector>

/// Gives the first of `recordings` the start that a person has given, and says that the others have
/// none, or those alone that it does not go on in (`areFollowing`). Comes behind the report's
/// making.
void giveStart(std::vector<Recording>& recordings, const ClockOptions& options, bool areFollowing,
               Messages& messages);

/// Notes when a recording began, also for the report.
void setStart(Recording& recording, const RecordingStart& start);

/// Looks for the recording's own start where that is asked for, and says what it is. Reads the
/// recording where its name tells nothing, so that it comes when this process is confined;
/// `isInterrupted` is asked meanwhile. Does nothing where the start is known.
void lookForStart(Recording& recording, const ClockOptions& options, Messages& messages,
                  const std::function<bool()>& isInterrupted);
