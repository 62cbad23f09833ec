// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "discardedclips.h"

#include "clip.h"
#include "encoderprocess.h"

#include <utility>

namespace {

constexpr int pauseMilliseconds = 1000;

} // namespace

DiscardedClips::~DiscardedClips() {
    qDeleteAll(discarded);
}

void DiscardedClips::add(const QList<Clip*>& clips) {
    Clip::leaveQueue(clips);
    discarded.append(clips);
    if (!discarded.isEmpty() && !timer.isActive())
        timer.start(pauseMilliseconds, this);
}

void DiscardedClips::timerEvent(QTimerEvent*) {
    if (Clip::exportQueueLength() > 0 || EncoderProcess::isAnyRunning())
        return;
    timer.stop();
    qDeleteAll(std::exchange(discarded, {}));
}
