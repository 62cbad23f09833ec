#include "codeccontext.h"

#include "decoderthreads.h"
#include "packetreader.h"

namespace {

OpenedCodec openWith(const AVCodec& codec, const AVCodecParameters& parameters, int threads) {
    OpenedCodec opened;
    CodecContextPointer context(avcodec_alloc_context3(&codec));
    int result =
        context ? avcodec_parameters_to_context(context.get(), &parameters) : AVERROR(ENOMEM);
    if (result >= 0) {
        // What the demuxer makes up where it knows none.
        context->framerate = {0, 1};
        opened.hasFrameThreads = setUpThreads(*context, threads) == DecoderThreading::Frame;
        result = avcodec_open2(context.get(), &codec, nullptr);
    }
    if (result < 0)
        opened.error = libavErrorText(result);
    else
        opened.context = std::move(context);
    return opened;
}

} // namespace

OpenedCodec openCodec(const AVCodecParameters& parameters, int threads) {
    const AVCodec* codec = avcodec_find_decoder(parameters.codec_id);
    if (!codec)
        return {nullptr, false,
                QStringLiteral("no decoder for %1").arg(avcodec_get_name(parameters.codec_id))};
    OpenedCodec opened = openWith(*codec, parameters, threads);
    if (opened.context || threads == 1)
        return opened;
    return openWith(*codec, parameters, 1);
}

double frameRateOf(const AVCodecContext& context) {
    const AVRational rate = context.framerate;
    return rate.num > 0 && rate.den > 0 ? av_q2d(rate) : 0.0;
}
