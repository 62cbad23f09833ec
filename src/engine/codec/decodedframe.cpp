// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "decodedframe.h"

extern "C" {
#include <libavutil/frame.h>
}

#include <cstdint>

const std::uint8_t* DecodedFrame::data() const {
    return frame->data[0];
}

int DecodedFrame::stride() const {
    return frame->linesize[0];
}

int DecodedFrame::width() const {
    return frame->width;
}

int DecodedFrame::height() const {
    return frame->height;
}

qint64 DecodedFrame::bytes() const {
    qint64 bytes = 0;
    for (const AVBufferRef* buffer : frame->buf)
        bytes += buffer ? qint64(buffer->size) : 0;
    return bytes;
}

void freeFrame(DecodedFrame* record) {
    if (!record)
        return;
    av_frame_free(&record->frame);
    delete record;
}
