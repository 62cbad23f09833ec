// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "totals.h"

#include <algorithm>

Totals::Totals(const std::vector<Recording>& recordings) {
    for (const Recording& recording : recordings)
        bytes += recording.bytes;
}

void Totals::finish(Recording& recording) {
    // Also where less was read: of a file that is none, or that was cut short.
    setPosition(recording, recording.bytes);
}

void Totals::setPosition(Recording& recording, qint64 bytePosition) {
    const std::lock_guard<std::mutex> lock(mutex);
    const qint64 more = std::max<qint64>(bytePosition - recording.read, 0);
    recording.read += more;
    read += more;
}

void Totals::addSeconds(double more) {
    const std::lock_guard<std::mutex> lock(mutex);
    seconds += more;
}

void Totals::addClip() {
    const std::lock_guard<std::mutex> lock(mutex);
    ++clips;
}

Progress Totals::progress() const {
    const std::lock_guard<std::mutex> lock(mutex);
    return {bytes > 0 ? double(read) / double(bytes) : -1.0, clips, seconds};
}
