// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "frames.h"

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
}

#include <QPainter>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int columns = 4;
constexpr int bits = 8;
constexpr int dark = 40;
constexpr int light = 215;

QRect blockOf(int bit, const QSize& size) {
    const QSize block(size.width() / columns, size.height() * columns / bits);
    return {QPoint(bit % columns * block.width(), bit / columns * block.height()), block};
}

AVFrame* emptyFrame(AVPixelFormat format, int width, int height) {
    AVFrame* frame = av_frame_alloc();
    frame->format = format;
    frame->width = width;
    frame->height = height;
    return frame;
}

} // namespace

namespace media {

HandMadeFrame::HandMadeFrame(AVPixelFormat format, int width, int height, int stride)
    : bytes(new std::uint8_t[std::size_t(std::abs(stride)) * std::size_t(height)]())
    , frame(new DecodedFrame{0.0, emptyFrame(format, width, height)}) {
    frame->frame->linesize[0] = stride;
    frame->frame->data[0] =
        stride < 0 ? bytes.get() + std::ptrdiff_t(height - 1) * -stride : bytes.get();
}

HandMadeFrame::HandMadeFrame(const cv::Mat& picture, bool bottomUp)
    : HandMadeFrame(AV_PIX_FMT_GRAY8, picture.cols, picture.rows,
                    bottomUp ? -picture.cols : picture.cols) {
    for (int y = 0; y < picture.rows; ++y)
        std::memcpy(row(y), picture.ptr(y), std::size_t(picture.cols));
}

std::uint8_t* HandMadeFrame::row(int y) {
    return frame->frame->data[0] + std::ptrdiff_t(y) * frame->frame->linesize[0];
}

FramePointer libraryFrame(AVPixelFormat format, int width, int height) {
    FramePointer record(new DecodedFrame{0.0, emptyFrame(format, width, height)});
    if (av_frame_get_buffer(record->frame, 0) < 0)
        return nullptr;
    for (const AVBufferRef* buffer : record->frame->buf) {
        if (buffer)
            std::memset(buffer->data, 0, std::size_t(buffer->size));
    }
    return record;
}

QImage numberedPicture(int number, const QSize& size) {
    QImage picture(size, QImage::Format_Grayscale8);
    picture.fill(dark);
    QPainter painter(&picture);
    for (int bit = 0; bit < bits; ++bit) {
        if (number >> bit & 1)
            painter.fillRect(blockOf(bit, size), QColor(light, light, light));
    }
    return picture;
}

QList<QImage> numberedPictures(int count, int first, const QSize& size) {
    QList<QImage> pictures;
    for (int i = 0; i < count; ++i)
        pictures.append(numberedPicture(first + i, size));
    return pictures;
}

int numberOf(const DecodedFrame& record) {
    // Packed formats show the same grey in every component; the distance of two pixels is theirs.
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(AVPixelFormat(record.frame->format));
    int number = 0;
    for (int bit = 0; bit < bits; ++bit) {
        const QPoint middle = blockOf(bit, QSize(record.width(), record.height())).center();
        const std::uint8_t* row = record.data() + std::ptrdiff_t(middle.y()) * record.stride();
        if (row[middle.x() * format->comp[0].step] > (dark + light) / 2)
            number |= 1 << bit;
    }
    return number;
}

} // namespace media
