// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "framepicture.h"

#include "framebudget.h"
#include "snapshotimage.h"

FramePicture::FramePicture(std::shared_ptr<const DecodedFrame> frame)
    : frame(std::move(frame)) {
    if (this->frame->bytes() > largestKeptPicture)
        shrink();
}

QImage FramePicture::snapshot() {
    shrink();
    return small;
}

void FramePicture::shrink() {
    if (!frame)
        return;
    small = snapshotImage(*frame);
    frame.reset();
}
