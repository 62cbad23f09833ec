// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "videodecoder.h"

#include "decodingcontext.h"

#include <QThread>

#include <utility>

VideoDecoder::VideoDecoder() = default;

VideoDecoder::~VideoDecoder() = default;

bool VideoDecoder::open(const char* fileName) {
    close();
    file = std::make_unique<MediaFile>(fileName);
    if (!file->isOpen())
        return false;
    DecodingOptions options;
    options.threads = qMax(1, QThread::idealThreadCount());
    context = std::make_unique<DecodingContext>(*file, options);
    return context->errorText().isEmpty();
}

DecodedFrame* VideoDecoder::readFrame(bool clone) {
    const Frame frame = context ? context->next() : Frame();
    if (!frame.isThere())
        return nullptr;
    AVFrame*& decoded = frame.picture->frame;
    AVFrame* picture = clone ? av_frame_clone(decoded) : std::exchange(decoded, nullptr);
    return picture ? new DecodedFrame{frame.time, picture} : nullptr;
}

void VideoDecoder::close() {
    context.reset();
    file.reset();
}

qint64 VideoDecoder::bytePosition() const {
    return file ? file->bytePosition() : -1;
}

int VideoDecoder::videoStreamIndex() const {
    return file && file->isOpen() ? file->stream()->index : -1;
}

bool VideoDecoder::isIntraCodec() const {
    const AVCodecID codec = file ? file->codec() : AV_CODEC_ID_NONE;
    return codec == AV_CODEC_ID_MJPEG || codec == AV_CODEC_ID_MJPEGB ||
           codec == AV_CODEC_ID_LAGARITH;
}
