// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playedrecording.h"

#include "measurement.h"

#include <cmath>

PlayedRecording playedRecording(const StreamFacts& stream) {
    PlayedRecording played{stream.description, stream.origin - stream.description.startTime};
    if (stream.frameRate > 0.0) {
        played.offset = 0.0;
        played.stream.frameRate = {int(std::lround(stream.frameRate * 1000.0)), 1000};
    }
    return played;
}
