// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "discardedclips.h"

#include "clip.h"
#include "clipplaces.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int pauseMilliseconds = 1000;

} // namespace

DiscardedClips::DiscardedClips(QListWidget& list)
    : list(list) {}

DiscardedClips::~DiscardedClips() {
    qDeleteAll(discarded);
}

void DiscardedClips::add(const QList<Clip*>& clips) {
    discarded.append(clips);
    if (!discarded.isEmpty() && !timer.isActive())
        timer.start(pauseMilliseconds, this);
}

void DiscardedClips::timerEvent(QTimerEvent*) {
    if (!isExportIdle())
        return;
    timer.stop();
    qDeleteAll(std::exchange(discarded, {}));
}

bool DiscardedClips::isExportIdle() const {
    const QList<Clip*> clips = clipsIn(list);
    return Clip::exportQueueLength() == 0 &&
           std::none_of(clips.cbegin(), clips.cend(),
                        [](const Clip* clip) { return clip->status == Clip::Exporting; });
}
