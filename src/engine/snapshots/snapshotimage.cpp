// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "snapshotimage.h"

#include "scaledpicture.h"

extern "C" {
#include <libavutil/frame.h>
}

#include <cstdint>

namespace {

constexpr int snapshotWidth = 320;

// QPainter and the icons made from a snapshot end at 16-bit coordinates; a damaged header can ask
// for millions of rows.
constexpr qint64 highestSnapshot = 32767;

int snapshotHeight(const AVFrame& frame) {
    if (frame.width < 1 || frame.height < 1)
        return 0;
    const qint64 height = qint64(frame.height) * snapshotWidth / frame.width;
    return height <= highestSnapshot ? int(height) : 0;
}

} // namespace

QImage snapshotImage(const DecodedFrame& record) {
    const int height = snapshotHeight(*record.frame);
    if (height < 1)
        return {};
    QImage image(snapshotWidth, height, QImage::Format_RGB32);
    if (image.isNull())
        return {};
    const bool isScaled =
        scalePicture(*record.frame, {AV_PIX_FMT_BGRA, snapshotWidth, height, image.bits(),
                                     image.bytesPerLine(), SWS_BILINEAR});
    return isScaled ? image : QImage();
}
