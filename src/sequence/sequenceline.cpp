// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sequenceline.h"

#include <algorithm>

void SequenceLine::append(const SequenceFile& file, const Continuation& how) {
    PlacedFile place;
    const bool isShifted = !files.isEmpty() && how.sign == Continuation::Sign::Clocks;
    if (isShifted) {
        place.gap = std::max(how.gap, 0.0);
        place.shift = files.last().end + place.gap - file.begin;
    } else if (!files.isEmpty()) {
        place.shift = files.last().shift;
    }
    place.begin = file.first + place.shift;
    place.last = file.last + place.shift;
    place.end = place.last + file.interval;
    files.append(place);
    newest = file;
}

QVector<LineStretch> SequenceLine::stretchesOf(double start, double end) const {
    QVector<LineStretch> stretches;
    for (int i = fileAt(start); i < files.size(); ++i) {
        const bool isLast = i == files.size() - 1;
        const double own = offsetOf(i);
        const double from = stretches.isEmpty() ? start - own : 0.0;
        const double to = isLast ? end - own : std::min(end - own, files[i].end - files[i].begin);
        if (!stretches.isEmpty() && to <= 0.0)
            break;
        stretches.append({i, i == 0 ? from : std::max(from, 0.0), to});
    }
    return stretches;
}

/// The recording in which something begins that does so at `time`, in seconds from the line's first
/// picture.
int SequenceLine::fileAt(double time) const {
    int file = 0;
    while (file + 1 < files.size() && time + files[0].begin >= files[file].end)
        ++file;
    return file;
}
