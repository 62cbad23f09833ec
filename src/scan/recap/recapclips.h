// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipformat.h"
#include "filmarguments.h"
#include "recapoptions.h"

#include <mutex>
#include <vector>

/// A clip of a recap, or what of it lies in one recording.
struct RecapClip {
    Recording* recording;
    int place;  ///< of the recording that has the clip, in the call
    int number; ///< in that one
    FilmStretch stretch;
    StreamDescription stream; ///< of its recording
};

/// The clips of a call that are to be in its recap.
class RecapClips {
public:
    /// On any thread.
    void add(const ClipLine& line);

    /// All of them, in the order in which they are told of.
    std::vector<RecapClip> inOrder(ClipCalls calls) const;

private:
    std::mutex mutex;
    std::vector<RecapClip> clips;
};

/// The film that suits them. It has the size that most clips have, in square pixels, of equals the
/// larger one; at most 4096 pixels wide and high. It has the pictures per second that most have,
/// but no less than 1 and no more than 60; 25 where nothing is known of them.
Film filmOf(const std::vector<RecapClip>& clips, const RecapOptions& options);
