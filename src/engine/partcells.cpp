// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partcells.h"

#include "motionseries.h"

void PartCells::add(const Frame& frame) {
    const qint64 number = frame.packet - delay;
    if (number < firstSure)
        return;
    if (!measure)
        measure.emplace(skip, number);
    measure->add(frame);
    if (skippedFrom(number, skip) == 0)
        look(number, frame.time);
}

void PartCells::look(qint64 number, double time) {
    isFromBegin = isFromBegin || number == 0 || (hasLooked && time < lastTime);
    if (!hasLooked)
        firstTime = time;
    hasLooked = true;
    lastTime = time;
}

bool PartCells::isSureAt(double time) const {
    return isFromBegin || (hasLooked && firstTime <= time - cellHistory);
}
