// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "framethreadeddecoder.h"

#include "libavversions.h"

namespace {

// MPEG-4 Part 2 in AVI can hold a B picture in one packet with the picture it refers to; then a
// few bytes, a picture that is not coded, stand where it would have been. Containers mark such
// placeholders as key frames, and where the stream is damaged, what comes of them depends on all
// that came before.
bool isPlaceholder(const AVPacket& packet, AVCodecID codec) {
    constexpr int largestPlaceholder = 8;
    return codec == AV_CODEC_ID_MPEG4 && packet.size <= largestPlaceholder;
}

} // namespace

FrameThreadedDecoder::FrameThreadedDecoder(CodecContextPointer context, const PacketReader& reader,
                                           PacketPointer firstPacket, qint64 lastNumber,
                                           bool areKeysBelieved)
    : context(std::move(context))
    , pacing(*this->context)
    , accessPoints(*reader.stream().codecpar)
    , firstPacket(std::move(firstPacket))
    , areKeysBelieved(areKeysBelieved)
    , delays{{-1, this->context->has_b_frames}}
    , lastNumber(lastNumber) {
    restart.handedOut(lastNumber);
}

FrameThreadedDecoder::Result FrameThreadedDecoder::next(PacketReader& reader) {
    while (!isNextComplete()) {
        AVFramePointer picture(av_frame_alloc());
        const int result =
            picture ? avcodec_receive_frame(context.get(), picture.get()) : AVERROR_EOF;
        if (result == AVERROR_EOF)
            return {Outcome::End, {}};
        if (result == AVERROR(EAGAIN)) {
            const bool goesOn = feed(reader.read());
            if (reader.isInterrupted())
                return {Outcome::End, {}};
            if (!goesOn)
                return {Outcome::Unsafe, {}};
            continue;
        }
        if (result < 0 || isUnsafe(*picture))
            return {Outcome::Unsafe, {}};
        add(std::move(picture));
    }
    return {Outcome::Picture, takeNext()};
}

/// What the decoder has learnt of the delay from packets that are decoded once more it must learn
/// from them again.
FrameThreadedDecoder::Restart FrameThreadedDecoder::takeRestart() {
    Restart found{restart.take(), std::move(firstPacket), delays.front().delay};
    for (const DelayChange& change : delays) {
        if (!found.packets.empty() && change.number < found.packets.front().number)
            found.reorderDelay = change.delay;
    }
    return found;
}

/// Gives the decoder its next packet, or the end of the stream. False at a sign of damage, also
/// where that lies in a packet that is still under way.
bool FrameThreadedDecoder::feed(std::optional<NumberedPacket> packet) {
    if (packet)
        return send(std::move(*packet));
    return avcodec_send_packet(context.get(), nullptr) >= 0;
}

bool FrameThreadedDecoder::send(NumberedPacket packet) {
    keep(packet);
    if (stamps.empty())
        firstStamp = packet.number;
    stamps.push_back(packet.packet->dts);
    packet.packet->dts = packet.number;
    const bool isDiscontinuity = (packet.packet->flags & AV_PKT_FLAG_CORRUPT) != 0 ||
                                 isPlaceholder(*packet.packet, context->codec_id);
    return avcodec_send_packet(context.get(), packet.packet.get()) >= 0 && !isDiscontinuity;
}

/// Containers call packets key frames that are none, above all where they are damaged.
void FrameThreadedDecoder::keep(const NumberedPacket& packet) {
    if (packet.number == 0)
        firstPacket.reset(av_packet_clone(packet.packet.get()));
    const PacketKind kind = accessPoints.next(*packet.packet);
    hasAccessPoints = hasAccessPoints && !kind.isDiscontinuity;
    const bool isAccessPoint = hasAccessPoints && kind.access != PacketKind::Access::None;
    const bool isKey = areKeysBelieved && (packet.packet->flags & AV_PKT_FLAG_KEY) != 0;
    restart.add(packet, isAccessPoint || isKey);
}

void FrameThreadedDecoder::noteDelay(qint64 number) {
    if (context->has_b_frames != delays.back().delay)
        delays.push_back({number, context->has_b_frames});
}

// Interlaced pictures are not damaged, but where a field lacks its pair, or in MPEG-4 Part 2 at
// all, frame threads give other pictures than one thread.
bool FrameThreadedDecoder::isUnsafe(const AVFrame& picture) const {
    return (picture.flags & AV_FRAME_FLAG_CORRUPT) != 0 || picture.decode_error_flags != 0 ||
           isInterlaced(picture);
}

void FrameThreadedDecoder::add(AVFramePointer picture) {
    if (picture->pkt_dts == AV_NOPTS_VALUE)
        return;
    noteDelay(picture->pkt_dts);
    const auto number = pacing.placeOf(picture->pkt_dts);
    if (number && *number > lastNumber)
        waiting.push_back({*number, AV_NOPTS_VALUE, std::move(picture)});
}

/// A picture can come with a packet that has not been read.
bool FrameThreadedDecoder::isNextComplete() const {
    return !waiting.empty() && waiting.front().number < firstStamp + qint64(stamps.size());
}

CompletedPicture FrameThreadedDecoder::takeNext() {
    CompletedPicture next = std::move(waiting.front());
    waiting.pop_front();
    lastNumber = next.number;
    while (firstStamp < lastNumber) {
        stamps.pop_front();
        ++firstStamp;
    }
    restart.handedOut(lastNumber);
    next.dts = stamps.front();
    return next;
}
