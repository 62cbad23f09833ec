// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scanprogress.h"

#include "interrupt.h"

bool ScanProgress::isCancelled() {
    return isEnding() || outputs.budget.isSpent();
}

void ScanProgress::positionChanged(qint64 bytePosition, bool) {
    if (recording.bytes > 0 && bytePosition > farthest) {
        outputs.budget.add(seconds * double(bytePosition - farthest) / double(recording.bytes));
        farthest = bytePosition;
    }
    outputs.totals.setPosition(recording, bytePosition);
    outputs.messages.showProgress(outputs.totals.progress());
}
