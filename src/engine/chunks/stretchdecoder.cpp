// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stretchdecoder.h"

#include "ffmpegmutex.h"
#include "libavversions.h"

#include <QMutexLocker>

#include <new>

namespace {

constexpr int none = -1; // no packet: the decoder gives away what it holds back

FramePointer recordOf(PicturePointer picture) {
    return FramePointer(new DecodedFrame{0.0, picture.release()});
}

} // namespace

void prime(AVCodecContext& context, const AVPacket& firstPacket) {
    const int delay = context.has_b_frames;
    const PicturePointer picture(av_frame_alloc());
    avcodec_send_packet(&context, &firstPacket);
    avcodec_send_packet(&context, nullptr);
    while (picture && avcodec_receive_frame(&context, picture.get()) >= 0)
        av_frame_unref(picture.get());
    avcodec_flush_buffers(&context);
    context.has_b_frames = delay;
}

StretchDecoder::StretchDecoder(std::shared_ptr<StretchStream> stream, CodecContextPointer context,
                               PictureComparison compare, std::unique_ptr<PictureKeeper> keeper,
                               std::function<bool()> isInterrupted)
    : stream(std::move(stream))
    , context(std::move(context))
    , compare(std::move(compare))
    , keeper(std::move(keeper))
    , isInterrupted(std::move(isInterrupted)) {}

StretchDecoder::~StretchDecoder() {
    QMutexLocker lock(&ffmpegMutex());
    context.reset();
}

bool StretchDecoder::open() {
    if (context)
        return true;
    QMutexLocker lock(&ffmpegMutex());
    if (stream->parameters)
        context = openCodec(*stream->parameters, 1, stream->memory).context;
    return context != nullptr;
}

/// A decoder that has not seen the stream's beginning is told of it.
bool StretchDecoder::prepare(const Stretch& stretch) {
    if (!open())
        return false;
    if (isNew && stretch.index > 0)
        prime(*context, *stream->firstPacket);
    isNew = false;
    return true;
}

void StretchDecoder::decode(Stretch& stretch) {
    if (stretch.isInDoubt)
        return;
    stretch.isInDoubt = true;
    if (!prepare(stretch))
        return;
    const int delayBefore = context->has_b_frames;
    stretch.isInDoubt = false;
    if (keeper)
        keeper->begin(stretch.firstPicture());
    feedAll(stretch);
    if (keeper)
        stretch.kept = keeper->end();
    stretch.delay = context->has_b_frames;
    // At the beginning the decoder may still learn of it.
    if (stretch.index > 0 && stretch.delay != delayBefore)
        stretch.isInDoubt = true;
    avcodec_flush_buffers(context.get());
}

void StretchDecoder::feedAll(Stretch& stretch) {
    int place = 0;
    PicturePacing pacing(*context);
    for (const AVPacket* packet : stretch.decodedPackets()) {
        stretch.isInDoubt = isInterrupted() || !feed(stretch, packet, place++, pacing);
        if (stretch.isInDoubt)
            return;
    }
    // What is held back at the end of the stream is never handed out.
    if (!stretch.isLast)
        stretch.isInDoubt = !feed(stretch, nullptr, none, pacing);
}

/// False at the first sign that this is not all there is to it.
bool StretchDecoder::feed(Stretch& stretch, const AVPacket* packet, int place,
                          PicturePacing& pacing) {
    stretch.isDamaged = avcodec_send_packet(context.get(), packet) < 0;
    if (stretch.isDamaged)
        return false;
    for (;;) {
        PicturePointer picture(av_frame_alloc());
        if (!picture)
            return false;
        const int result = avcodec_receive_frame(context.get(), picture.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
            return true;
        stretch.isDamaged = result < 0 || isDamaged(*picture);
        const std::optional<qint64> fed = place == none ? none : pacing.placeOf(place);
        if (stretch.isDamaged || !fed || !take(stretch, std::move(picture), int(*fed)))
            return false;
    }
}

/// Pictures behind the stretch's own are those of the next one, and those that belong to packets
/// behind the end are nobody's.
bool StretchDecoder::take(Stretch& stretch, PicturePointer picture, int place) {
    const int reached = stretch.isLast ? place : int(stretch.results.size());
    if (reached >= stretch.expectedPictures())
        return true;
    StretchResult result{place, std::nullopt};
    std::shared_ptr<const DecodedFrame> record = recordOf(std::move(picture));
    if (stretch.results.empty()) {
        keepFirst(stretch, *record);
    } else {
        if (!areAlike(*stretch.last->frame, *record->frame))
            return false;
        result.value = compare(*stretch.last, *record);
        if (keeper)
            keeper->take(int(stretch.results.size()), stretch.last, record, result.value);
    }
    stretch.results.push_back(result);
    stretch.last = std::move(record);
    return true;
}

void StretchDecoder::keepFirst(Stretch& stretch, const DecodedFrame& record) {
    stretch.headerFrameRate = frameRateOf(*context);
    stretch.width = record.width();
    stretch.height = record.height();
    stretch.first.reset(new DecodedFrame{0.0, av_frame_clone(record.frame)});
    if (!stretch.first->frame)
        throw std::bad_alloc();
}

// Fields of MPEG-4 Part 2 that refer to two pictures count on the first such picture of the stream.
bool StretchDecoder::isDamaged(const AVFrame& picture) const {
    const bool isCounted = context->codec_id == AV_CODEC_ID_MPEG4 && isInterlaced(picture);
    return (picture.flags & AV_FRAME_FLAG_CORRUPT) != 0 || picture.decode_error_flags != 0 ||
           isCounted;
}

void StretchDecoder::decodeAgain(const Stretch& stretch,
                                 const std::function<bool(int place, FramePointer frame)>& take) {
    if (!prepare(stretch))
        return;
    if (stretch.index > 0)
        context->has_b_frames = stretch.delay;
    std::vector<const AVPacket*> packets = stretch.decodedPackets();
    packets.push_back(nullptr); // the decoder then gives away what it holds back
    int next = 0;
    for (const AVPacket* packet : packets) {
        avcodec_send_packet(context.get(), packet);
        PicturePointer picture(av_frame_alloc());
        while (picture && avcodec_receive_frame(context.get(), picture.get()) >= 0) {
            if (!take(next++, recordOf(std::move(picture))))
                return;
            picture.reset(av_frame_alloc());
        }
    }
}
