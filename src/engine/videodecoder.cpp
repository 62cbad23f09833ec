#include "videodecoder.h"

#include "logging.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <array>

struct DecodingContext {
    AVFormatContext* formatContext = nullptr;
    int videoStreamIndex = -1;
    AVCodecContext* codecContext = nullptr;
    const AVCodec* codec = nullptr;
    AVPacket* packet = nullptr;
    AVFrame* picture = nullptr; ///< filled by the decoder, reused until a picture is handed out
    AVFrame* surplus = nullptr; ///< takes the pictures after the first that one packet gives
};

namespace {

QString libavText(int code) {
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
    av_strerror(code, text.data(), text.size());
    return QString::fromUtf8(text.data());
}

int askInterrupt(void* interrupt) {
    const auto& isInterrupted = *static_cast<std::function<bool()>*>(interrupt);
    return isInterrupted && isInterrupted() ? 1 : 0;
}

int firstVideoStream(const AVFormatContext& format) {
    for (unsigned i = 0; i < format.nb_streams; ++i) {
        if (format.streams[i]->codecpar->codec_type == AVMEDIA_TYPE_VIDEO)
            return int(i);
    }
    return -1;
}

double timeOf(const AVPacket& packet, const AVRational& timeBase) {
    // A missing decoding time is the smallest 64-bit number, which a double holds exactly.
    return double(packet.dts) * (double(timeBase.num) / double(timeBase.den));
}

} // namespace

VideoDecoder::VideoDecoder() {
    routeLibavLog();
}

VideoDecoder::~VideoDecoder() {
    close();
}

void VideoDecoder::setInterrupt(std::function<bool()> isInterrupted) {
    interrupt = std::move(isInterrupted);
}

bool VideoDecoder::open(const char* fileName) {
    close();
    error.clear();
    context = new DecodingContext;
    return openFile(fileName) && openStream();
}

bool VideoDecoder::openFile(const char* fileName) {
    context->formatContext = avformat_alloc_context();
    context->packet = av_packet_alloc();
    context->picture = av_frame_alloc();
    context->surplus = av_frame_alloc();
    if (!context->formatContext || !context->packet || !context->picture || !context->surplus) {
        error = QStringLiteral("out of memory");
        return false;
    }
    context->formatContext->interrupt_callback = {askInterrupt, &interrupt};
    int result = avformat_open_input(&context->formatContext, fileName, nullptr, nullptr);
    if (result >= 0)
        result = avformat_find_stream_info(context->formatContext, nullptr);
    if (result < 0) {
        error = libavText(result);
        return false;
    }
    av_dump_format(context->formatContext, 0, fileName, 0);
    return true;
}

bool VideoDecoder::openStream() {
    context->videoStreamIndex = firstVideoStream(*context->formatContext);
    if (context->videoStreamIndex < 0) {
        error = QStringLiteral("no video stream");
        return false;
    }
    const AVCodecParameters* parameters =
        context->formatContext->streams[context->videoStreamIndex]->codecpar;
    context->codec = avcodec_find_decoder(parameters->codec_id);
    if (!context->codec) {
        error = QStringLiteral("no decoder for %1").arg(avcodec_get_name(parameters->codec_id));
        return false;
    }
    context->codecContext = avcodec_alloc_context3(context->codec);
    int result = context->codecContext
                     ? avcodec_parameters_to_context(context->codecContext, parameters)
                     : AVERROR(ENOMEM);
    if (result >= 0)
        result = avcodec_open2(context->codecContext, context->codec, nullptr);
    if (result < 0)
        error = libavText(result);
    return result >= 0;
}

DecodedFrame* VideoDecoder::readFrame(bool clone) {
    if (!context || !context->codecContext || !avcodec_is_open(context->codecContext))
        return nullptr;
    while (!(interrupt && interrupt()) &&
           av_read_frame(context->formatContext, context->packet) >= 0) {
        const bool gotPicture =
            context->packet->stream_index == context->videoStreamIndex && decodePacket();
        DecodedFrame* record = gotPicture ? takePicture(clone) : nullptr;
        av_packet_unref(context->packet);
        if (gotPicture)
            return record;
    }
    return nullptr;
}

/// Decodes the current packet and keeps the first picture that it gives.
bool VideoDecoder::decodePacket() {
    // An empty packet would tell the decoder that the stream has ended.
    if (context->packet->size <= 0)
        return false;
    // What the decoder thinks of the packet is of no interest: a damaged packet can still complete
    // a picture, and a good one need not.
    avcodec_send_packet(context->codecContext, context->packet);
    bool gotPicture = false;
    // A packet can hold several pictures. All of them are taken out, or the decoder would refuse
    // the next packet; an error inside it ends one picture and not the packet.
    constexpr int mostPicturesPerPacket = 256;
    for (int i = 0; i < mostPicturesPerPacket; ++i) {
        AVFrame* target = gotPicture ? context->surplus : context->picture;
        const int result = avcodec_receive_frame(context->codecContext, target);
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
            break;
        gotPicture = gotPicture || result >= 0;
    }
    av_frame_unref(context->surplus);
    return gotPicture;
}

DecodedFrame* VideoDecoder::takePicture(bool clone) {
    AVFrame* picture = nullptr;
    if (clone) {
        picture = av_frame_clone(context->picture);
        av_frame_unref(context->picture);
    } else {
        picture = context->picture;
        context->picture = av_frame_alloc();
    }
    if (!picture || !context->picture) {
        av_frame_free(&picture);
        return nullptr;
    }
    const AVStream* stream = context->formatContext->streams[context->videoStreamIndex];
    return new DecodedFrame{timeOf(*context->packet, stream->time_base), picture};
}

void VideoDecoder::close() {
    if (!context)
        return;
    av_packet_free(&context->packet);
    av_frame_free(&context->picture);
    av_frame_free(&context->surplus);
    avcodec_free_context(&context->codecContext);
    avformat_close_input(&context->formatContext);
    delete context;
    context = nullptr;
}

qint64 VideoDecoder::bytePosition() const {
    if (!context || !context->formatContext || !context->formatContext->pb)
        return -1;
    return context->formatContext->pb->pos;
}

int VideoDecoder::videoStreamIndex() const {
    return context ? context->videoStreamIndex : -1;
}

bool VideoDecoder::isIntraCodec() const {
    if (!context || !context->codecContext || !context->codecContext->codec_descriptor)
        return false;
    switch (context->codecContext->codec_descriptor->id) {
    case AV_CODEC_ID_MJPEG:
    case AV_CODEC_ID_MJPEGB:
    case AV_CODEC_ID_LAGARITH:
        return true;
    default:
        return false;
    }
}

double VideoDecoder::duration() const {
    const bool known = context && context->formatContext && context->formatContext->duration > 0;
    return known ? double(context->formatContext->duration) / AV_TIME_BASE : 0.0;
}

QString VideoDecoder::errorText() const {
    return error;
}
