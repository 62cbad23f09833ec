// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stretchpicture.h"

#include "snapshotimage.h"

namespace {

// Beside those that are in hand: half a minute of any camera's stream.
constexpr qint64 mostKeptBytes = 64 * 1024 * 1024;

} // namespace

StretchPicture::StretchPicture(StretchedPicture picture)
    : picture(std::move(picture)) {}

QImage StretchPicture::snapshot() {
    makeSmall();
    return small;
}

void StretchPicture::shrink() {
    if (picture.stretch && keptBytes(picture) > mostKeptBytes)
        makeSmall();
}

void StretchPicture::makeSmall() {
    if (!picture.stretch)
        return;
    const FramePointer frame = decodeAgain(picture);
    if (frame)
        small = snapshotImage(*frame);
    picture.stretch.reset();
}
