// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "rangedpictures.h"

namespace {

// Times are sums of fractions; a person writes them with a few digits.
constexpr double tolerance = 1e-6;

} // namespace

RangedPictures::RangedPictures(PictureSource& pictures, const TimeRange& range,
                               std::optional<RecordingOrigin> origin)
    : pictures(pictures)
    , range(range)
    , origin(origin)
    , isSkipped(origin.has_value()) {}

Frame RangedPictures::next() {
    for (;;) {
        Frame picture = pictures.next();
        if (!picture.isThere())
            return {};
        count(picture);
        const double time = picture.time - origin->time;
        if (time > range.to + tolerance)
            return {};
        hasBegun = hasBegun || time >= range.from - tolerance;
        if (hasBegun)
            return picture;
    }
}

void RangedPictures::count(const Frame& picture) {
    if (!origin)
        origin = RecordingOrigin{picture.time, picture.packet};
    const qint64 last = currentNumber;
    const bool isByPacket = isSkipped && !hasBegun;
    currentNumber = isByPacket ? picture.packet - origin->packet : last + 1;
    hasGap = hasGap || (last >= 0 && currentNumber != last + 1);
}
