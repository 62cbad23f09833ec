// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "framesnapshot.h"

#include "framebudget.h"
#include "snapshotimage.h"

FrameSnapshot::FrameSnapshot(std::shared_ptr<const DecodedFrame> frame)
    : frame(std::move(frame)) {
    if (this->frame->bytes() > largestKeptPicture)
        shrink();
}

QImage FrameSnapshot::snapshot() {
    shrink();
    return small;
}

void FrameSnapshot::shrink() {
    if (!frame)
        return;
    small = snapshotImage(*frame);
    frame.reset();
}
