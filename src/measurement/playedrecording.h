// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "streamdescription.h"

struct StreamFacts;

/// A recording as programs see it that play it.
struct PlayedRecording {
    StreamDescription stream;
    double offset = 0.0; ///< seconds from the file's beginning to its first picture
};

/// Where pictures are numbered, for want of times, the rate at which they are is that of the
/// stream.
PlayedRecording playedRecording(const StreamFacts& stream);
