// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingselection.h"

#include <algorithm>

RecordingSelection::RecordingSelection(const SelectionOptions& options)
    : shortest(options.shortest) {
    if (options.longest)
        cutter.emplace(*options.longest);
}

void RecordingSelection::addPicture(double time, MotionScore motion) {
    if (cutter)
        cutter->addPicture(time, motion);
}

QVector<DetectedClip> RecordingSelection::of(const DetectedClip& clip) {
    constexpr double rounding = 1e-6; // seconds, as where clips are cut
    QVector<DetectedClip> clips = cutter ? cutter->cut(clip) : QVector{clip};
    // The times of a clip can run backwards; only who asks for long ones does without it.
    const auto isShort = [this](const DetectedClip& found) {
        return shortest > 0.0 && found.end - found.start < shortest - rounding;
    };
    const auto end = std::remove_if(clips.begin(), clips.end(), isShort);
    leftOut += int(clips.end() - end);
    clips.erase(end, clips.end());
    return clips;
}
