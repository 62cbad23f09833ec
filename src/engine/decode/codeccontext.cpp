#include "codeccontext.h"

#include "decoderthreads.h"
#include "packetreader.h"

OpenedCodec openCodec(const AVCodecParameters& parameters, int threads) {
    OpenedCodec opened;
    const AVCodec* codec = avcodec_find_decoder(parameters.codec_id);
    if (!codec) {
        opened.error =
            QStringLiteral("no decoder for %1").arg(avcodec_get_name(parameters.codec_id));
        return opened;
    }
    CodecContextPointer context(avcodec_alloc_context3(codec));
    int result =
        context ? avcodec_parameters_to_context(context.get(), &parameters) : AVERROR(ENOMEM);
    if (result >= 0) {
        opened.hasFrameThreads = setUpThreads(*context, threads) == DecoderThreading::Frame;
        result = avcodec_open2(context.get(), codec, nullptr);
    }
    if (result < 0)
        opened.error = libavErrorText(result);
    else
        opened.context = std::move(context);
    return opened;
}
