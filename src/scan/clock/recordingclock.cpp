// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingclock.h"

#include "motionreport.h"
#include "startlookup.h"
#include "starttext.h"

namespace {

void tell(const Recording& recording, Messages& messages) {
    messages.note(QStringLiteral("%1: %2").arg(recording.video, startText(recording.start)));
}

} // namespace

void setStart(Recording& recording, const RecordingStart& start) {
    recording.start = start;
    if (recording.reported)
        recording.reported->start = start;
}

void giveStart(std::vector<Recording>& recordings, const ClockOptions& options, bool areFollowing,
               Messages& messages) {
    if (!options.given.isKnown() || recordings.empty())
        return;
    setStart(recordings.front(), options.given);
    if (!options.given.doubts.isEmpty())
        tell(recordings.front(), messages);
    if (recordings.size() > 1)
        messages.note(QStringLiteral("--start-time is when the first recording began; %1 have no "
                                     "date and time, --start-time auto looks for them")
                          .arg(areFollowing ? QStringLiteral("those that it does not go on in")
                                            : QStringLiteral("the others")));
}

void lookForStart(Recording& recording, const ClockOptions& options, Messages& messages,
                  const std::function<bool()>& isInterrupted) {
    if (!options.search || recording.start.isKnown())
        return;
    setStart(recording, lookUpStart(recording.path, *options.search, isInterrupted));
    tell(recording, messages);
}
