// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "totals.h"

#include <QFileInfo>

#include <algorithm>

Totals::Totals(const QStringList& videos)
    : positions(videos.size(), 0) {
    for (const QString& video : videos) {
        sizes.append(QFileInfo(video).size());
        bytes += sizes.last();
    }
}

void Totals::finish(int recording) {
    // Also where less was read: of a file that is none, or that was cut short.
    setPosition(recording, sizes[recording]);
}

void Totals::setPosition(int recording, qint64 bytePosition) {
    const std::lock_guard<std::mutex> lock(mutex);
    const qint64 more = std::max<qint64>(bytePosition - positions[recording], 0);
    positions[recording] += more;
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
