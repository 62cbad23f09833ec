// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scanprogress.h"

#include "interrupt.h"

bool ScanProgress::isCancelled() {
    return isEnding();
}

void ScanProgress::positionChanged(qint64 bytePosition, bool) {
    outputs.totals.setPosition(recording, bytePosition);
    outputs.messages.showProgress(outputs.totals.progress());
}
