// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "codeccontext.h"

#include "decoderthreads.h"
#include "demuxer.h"
#include "ffmpegmutex.h"

#include <QMutexLocker>

namespace {

// The AV1 decoder allocates its pictures by itself. It keeps eight to refer to, besides the one at
// work and those that are handed out.
constexpr qint64 mostAv1Pictures = 11;
constexpr double bytesPerPixel = 1.5;
constexpr qint64 mostAv1Pixels = qint64(double(mostFrameBytes) / mostAv1Pictures / bytesPerPixel);

bool areTooLarge(const AVCodecParameters& parameters) {
    const qint64 bytes = pictureBytes(parameters.format, parameters.width, parameters.height);
    const bool isAv1 = parameters.codec_id == AV_CODEC_ID_AV1;
    return !haveRoom(bytes) || (isAv1 && bytes > mostFrameBytes / mostAv1Pictures);
}

OpenedCodec openWith(const AVCodec& codec, const AVCodecParameters& parameters, int threads,
                     FrameBudget& memory) {
    OpenedCodec opened;
    CodecContextPointer context(avcodec_alloc_context3(&codec));
    int result =
        context ? avcodec_parameters_to_context(context.get(), &parameters) : AVERROR(ENOMEM);
    if (result >= 0) {
        // What the demuxer makes up where it knows none.
        context->framerate = {0, 1};
        opened.hasFrameThreads = setUpThreads(*context, threads) == DecoderThreading::Frame;
        memory.watch(*context);
        if (codec.id == AV_CODEC_ID_AV1)
            context->max_pixels = mostAv1Pixels;
        QMutexLocker lock(&ffmpegMutex());
        result = avcodec_open2(context.get(), &codec, nullptr);
    }
    if (result < 0)
        opened.error = libavErrorText(result);
    else
        opened.context = std::move(context);
    return opened;
}

} // namespace

void CodecContextDeleter::operator()(AVCodecContext* context) const {
    QMutexLocker lock(&ffmpegMutex());
    avcodec_free_context(&context);
}

OpenedCodec openCodec(const AVCodecParameters& parameters, int threads, FrameBudget& memory) {
    const AVCodec* codec = avcodec_find_decoder(parameters.codec_id);
    if (!codec)
        return {nullptr, false,
                QStringLiteral("no decoder for %1").arg(avcodec_get_name(parameters.codec_id))};
    if (areTooLarge(parameters))
        return {nullptr, false, tooLargeText(parameters.width, parameters.height)};
    OpenedCodec opened = openWith(*codec, parameters, threads, memory);
    if (opened.context || threads == 1)
        return opened;
    return openWith(*codec, parameters, 1, memory);
}

double frameRateOf(const AVCodecContext& context) {
    const AVRational rate = context.framerate;
    return rate.num > 0 && rate.den > 0 ? av_q2d(rate) : 0.0;
}
