// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunkdecoder.h"

#include "frame.h"
#include "libavversions.h"

#include <new>

namespace {

constexpr int none = -1; // no packet: the decoder gives away what it holds back

FramePointer recordOf(AVFramePointer picture, double time = 0.0) {
    return FramePointer(new DecodedFrame{time, picture.release()});
}

} // namespace

void prime(AVCodecContext& context, const AVPacket& firstPacket) {
    const int delay = context.has_b_frames;
    const AVFramePointer picture(av_frame_alloc());
    avcodec_send_packet(&context, &firstPacket);
    avcodec_send_packet(&context, nullptr);
    while (picture && avcodec_receive_frame(&context, picture.get()) >= 0)
        av_frame_unref(picture.get());
    avcodec_flush_buffers(&context);
    context.has_b_frames = delay;
}

ChunkDecoder::ChunkDecoder(std::shared_ptr<ChunkStream> stream, CodecContextPointer context,
                           PictureComparison compare, PictureReduction reduce,
                           std::unique_ptr<PictureKeeper> keeper,
                           std::function<bool()> isInterrupted)
    : stream(std::move(stream))
    , context(std::move(context))
    , compare(std::move(compare))
    , reduce(std::move(reduce))
    , keeper(std::move(keeper))
    , isInterrupted(std::move(isInterrupted)) {}

bool ChunkDecoder::open() {
    if (context)
        return true;
    if (stream->parameters)
        context = openCodec(*stream->parameters, 1, stream->memory).context;
    return context != nullptr;
}

/// A decoder that has not seen the stream's beginning is told of it.
bool ChunkDecoder::prepare(const Chunk& chunk) {
    if (!open())
        return false;
    if (isNew && chunk.index > 0)
        prime(*context, *stream->firstPacket);
    isNew = false;
    return true;
}

void ChunkDecoder::decode(Chunk& chunk) {
    if (chunk.hasMismatch)
        return;
    chunk.hasMismatch = true;
    if (!prepare(chunk))
        return;
    const int delayBefore = context->has_b_frames;
    chunk.hasMismatch = false;
    if (keeper)
        keeper->begin(chunk.firstPicture());
    feedAll(chunk);
    if (keeper)
        chunk.kept = keeper->end();
    chunk.delay = context->has_b_frames;
    // At the beginning the decoder may still learn of it.
    if (chunk.index > 0 && chunk.delay != delayBefore)
        chunk.hasMismatch = true;
    avcodec_flush_buffers(context.get());
}

void ChunkDecoder::feedAll(Chunk& chunk) {
    int place = 0;
    FramePacing pacing(*context);
    for (const AVPacket* packet : chunk.decodedPackets()) {
        chunk.hasMismatch = isInterrupted() || !feed(chunk, packet, place++, pacing);
        if (chunk.hasMismatch)
            return;
    }
    // What is held back at the end of the stream is never handed out.
    if (!chunk.isLast)
        chunk.hasMismatch = !feed(chunk, nullptr, none, pacing);
}

/// False at the first sign that this is not all there is to it.
bool ChunkDecoder::feed(Chunk& chunk, const AVPacket* packet, int place, FramePacing& pacing) {
    chunk.isDamaged = avcodec_send_packet(context.get(), packet) < 0;
    if (chunk.isDamaged)
        return false;
    for (;;) {
        AVFramePointer picture(av_frame_alloc());
        if (!picture)
            return false;
        const int result = avcodec_receive_frame(context.get(), picture.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
            return true;
        tick(packet);
        chunk.isDamaged = result < 0 || isDamaged(*picture);
        const std::optional<qint64> fed = place == none ? none : pacing.placeOf(place);
        if (chunk.isDamaged || !fed || !take(chunk, std::move(picture), int(*fed)))
            return false;
    }
}

/// A picture comes with this packet; with none where the decoder gives away what it holds back.
void ChunkDecoder::tick(const AVPacket* packet) {
    const bool isTimed = packet && packet->dts != AV_NOPTS_VALUE;
    const double now = isTimed ? secondsOf(packet->dts, stream->timeBase) : time + step;
    step = now - time;
    time = now;
}

/// Pictures behind the chunk's own are those of the next one, and those that belong to packets
/// behind the end are nobody's.
bool ChunkDecoder::take(Chunk& chunk, AVFramePointer picture, int place) {
    const int reached = chunk.isLast ? place : int(chunk.results.size());
    if (reached >= chunk.expectedPictures())
        return true;
    ChunkResult result{place, std::nullopt};
    std::shared_ptr<const DecodedFrame> record = recordOf(std::move(picture), time);
    if (reduce)
        takeCells(result, *record);
    if (chunk.results.empty()) {
        keepFirst(chunk, *record);
    } else {
        if (!areAlike(*chunk.last->frame, *record->frame))
            return false;
        result.motion = compare(*chunk.last, *record);
        if (keeper)
            keeper->take(int(chunk.results.size()), chunk.last, record, result.motion);
    }
    chunk.results.push_back(std::move(result));
    chunk.last = std::move(record);
    return true;
}

void ChunkDecoder::takeCells(ChunkResult& result, const DecodedFrame& record) {
    result.cells = reduce(record);
    if (keeper)
        keeper->takeCells(record, result.cells);
}

void ChunkDecoder::keepFirst(Chunk& chunk, const DecodedFrame& record) {
    chunk.headerFrameRate = frameRateOf(*context);
    chunk.width = record.width();
    chunk.height = record.height();
    chunk.first.reset(new DecodedFrame{0.0, av_frame_clone(record.frame)});
    if (!chunk.first->frame)
        throw std::bad_alloc();
}

// Fields of MPEG-4 Part 2 that refer to two pictures count on the first such picture of the stream.
bool ChunkDecoder::isDamaged(const AVFrame& picture) const {
    const bool isCounted = context->codec_id == AV_CODEC_ID_MPEG4 && isInterlaced(picture);
    return (picture.flags & AV_FRAME_FLAG_CORRUPT) != 0 || picture.decode_error_flags != 0 ||
           isCounted;
}

void ChunkDecoder::decodeAgain(const Chunk& chunk,
                               const std::function<bool(int place, FramePointer frame)>& take) {
    if (!prepare(chunk))
        return;
    if (chunk.index > 0)
        context->has_b_frames = chunk.delay;
    std::vector<const AVPacket*> packets = chunk.decodedPackets();
    packets.push_back(nullptr); // the decoder then gives away what it holds back
    int next = 0;
    for (const AVPacket* packet : packets) {
        avcodec_send_packet(context.get(), packet);
        AVFramePointer picture(av_frame_alloc());
        while (picture && avcodec_receive_frame(context.get(), picture.get()) >= 0) {
            if (!take(next++, recordOf(std::move(picture))))
                return;
            picture.reset(av_frame_alloc());
        }
    }
}
