#include "serialdecoder.h"

SerialDecoder::SerialDecoder(CodecContextPointer context)
    : context(std::move(context))
    , picture(av_frame_alloc())
    , surplus(av_frame_alloc()) {}

PicturePointer SerialDecoder::decode(const AVPacket& packet) {
    if (!picture)
        picture.reset(av_frame_alloc());
    if (!picture || !surplus)
        return nullptr;
    avcodec_send_packet(context.get(), &packet);
    bool gotPicture = false;
    // A packet can hold several pictures. All of them are taken out, or the decoder would refuse
    // the next packet; an error inside it ends one picture and not the packet.
    constexpr int mostPicturesPerPacket = 256;
    for (int i = 0; i < mostPicturesPerPacket; ++i) {
        AVFrame* target = gotPicture ? surplus.get() : picture.get();
        const int result = avcodec_receive_frame(context.get(), target);
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
            break;
        gotPicture = gotPicture || result >= 0;
    }
    av_frame_unref(surplus.get());
    return gotPicture ? std::move(picture) : nullptr;
}

PicturePointer SerialDecoder::takeHeld() {
    PicturePointer held(av_frame_alloc());
    avcodec_send_packet(context.get(), nullptr);
    const bool isTaken = held && avcodec_receive_frame(context.get(), held.get()) >= 0;
    return isTaken ? std::move(held) : nullptr;
}
