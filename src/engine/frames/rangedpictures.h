// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "picturesource.h"
#include "timerange.h"

#include <optional>

/// The first picture of a recording: what the others are counted from.
struct RecordingOrigin {
    double time = 0.0; ///< seconds
    qint64 packet = 0; ///< the one that completed it
};

/// Those pictures of an open file that lie in a range: from the first one in it to the last one
/// before one behind it, with the numbers that the recording gives
/// them.
class RangedPictures {
public:
    /// With an `origin` the file is not read from its start: packets tell the numbers. Without one
    /// the first picture is it.
    RangedPictures(PictureSource& pictures, const TimeRange& range,
                   std::optional<RecordingOrigin> origin);

    /// The next one; null at the end of the range or the file.
    Frame next();

    /// The number of the picture that `next` has answered last.
    qint64 number() const { return currentNumber; }

    const PictureSource& source() const { return pictures; }

    double originTime() const { return origin ? origin->time : 0.0; }

    /// Whether packets did not each complete one picture, so that they tell no numbers.
    bool hasMismatch() const { return hasGap; }

private:
    void count(const Frame& picture);

    PictureSource& pictures;
    TimeRange range;
    std::optional<RecordingOrigin> origin;
    bool isSkipped;
    bool hasBegun = false; ///< the range has been reached
    qint64 currentNumber = -1;
    bool hasGap = false;
};
