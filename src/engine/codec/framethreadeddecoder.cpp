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

FrameThreadedDecoder::FrameThreadedDecoder(CodecContextPointer context, PacketReader& reader,
                                           const FrameBudget& memory, PacketPointer firstPacket,
                                           qint64 lastNumber, bool areKeysBelieved)
    : context(std::move(context))
    , reader(reader)
    , memory(memory)
    , pacing(*this->context)
    , accessPoints(*reader.stream().codecpar)
    , firstPacket(std::move(firstPacket))
    , areKeysBelieved(areKeysBelieved)
    , delays{{-1, this->context->has_b_frames}}
    , lastNumber(lastNumber) {
    recent.handedOut(lastNumber);
}

FrameDecoder::Result FrameThreadedDecoder::next() {
    while (!isNextComplete()) {
        AVFramePointer picture(av_frame_alloc());
        const int result =
            picture ? avcodec_receive_frame(context.get(), picture.get()) : AVERROR_EOF;
        if (result == AVERROR_EOF)
            return atEnd();
        if (result == AVERROR(EAGAIN)) {
            const bool goesOn = feed(reader.read());
            if (reader.isInterrupted())
                return atEnd();
            if (!goesOn)
                return {Outcome::Fallback, {}};
            continue;
        }
        if (result < 0 || isUnsafe(*picture))
            return {Outcome::Fallback, {}};
        add(std::move(picture));
    }
    return {Outcome::Frame, takeNext()};
}

/// Where many threads found no room, one may.
FrameDecoder::Result FrameThreadedDecoder::atEnd() const {
    return {memory.hasFailed() ? Outcome::Fallback : Outcome::End, {}};
}

/// What the decoder has learnt of the delay from packets that are decoded once more it must learn
/// from them again.
Restart FrameThreadedDecoder::takeRestart() {
    Restart restart;
    restart.packets = recent.take();
    restart.firstPacket = std::move(firstPacket);
    restart.reorderDelay = delays.front().delay;
    for (const DelayChange& change : delays) {
        if (!restart.packets.empty() && change.number < restart.packets.front().number)
            restart.reorderDelay = change.delay;
    }
    return restart;
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
    recent.add(packet, isAccessPoint || isKey);
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
        waiting.push_back({*number, std::move(picture)});
}

/// A picture can come with a packet that has not been read.
bool FrameThreadedDecoder::isNextComplete() const {
    return !waiting.empty() && waiting.front().number < firstStamp + qint64(stamps.size());
}

Frame FrameThreadedDecoder::takeNext() {
    Completed next = std::move(waiting.front());
    waiting.pop_front();
    lastNumber = next.number;
    while (firstStamp < lastNumber) {
        stamps.pop_front();
        ++firstStamp;
    }
    recent.handedOut(lastNumber);
    return frameOf(std::move(next.picture), next.number, stamps.front(), reader.stream().time_base);
}
