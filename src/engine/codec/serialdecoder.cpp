// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "serialdecoder.h"

#include <cerrno>

SerialDecoder::SerialDecoder(CodecContextPointer context, PacketReader& reader, FrameBudget& memory,
                             qint64 lastNumber)
    : context(std::move(context))
    , reader(reader)
    , memory(memory)
    , pacing(*this->context)
    , lastNumber(lastNumber) {}

FrameDecoder::Result SerialDecoder::next() {
    while (!reader.isInterrupted()) {
        const auto packet = reader.read();
        if (!packet)
            break;
        AVFramePointer found = decode(*packet->packet);
        countUndecoded(packet->number);
        if (memory.hasFailed())
            return {Outcome::OutOfMemory, {}};
        if (!found || packet->number <= lastNumber)
            continue;
        lastNumber = packet->number;
        return {Outcome::Frame, frameOf(std::move(found), packet->number, packet->packet->dts,
                                        reader.stream().time_base)};
    }
    return {Outcome::End, {}};
}

/// Several threads have come to one at the first packet that is refused: all count the same.
void SerialDecoder::countUndecoded(qint64 packet) {
    undecoded += isLastUndecoded ? 1 : 0;
    isLastUndecoded = isRefused && lastNumber >= 0 && packet > lastNumber;
}

/// What the decoder thinks of the packet does not matter: a damaged one can complete a picture,
/// too, and a good one need not.
AVFramePointer SerialDecoder::decode(const AVPacket& packet) {
    errno = 0;
    isRefused = false;
    noteRefusal(avcodec_send_packet(context.get(), &packet));
    // A packet can hold several pictures. All of them are taken out, or the decoder would refuse
    // the next packet; an error inside it ends one picture and not the packet.
    constexpr int mostPicturesPerPacket = 256;
    for (int i = 0; i < mostPicturesPerPacket; ++i) {
        if (!picture)
            picture.reset(av_frame_alloc());
        if (!picture) {
            memory.noteShortage();
            return nullptr;
        }
        const int result = avcodec_receive_frame(context.get(), picture.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
            break;
        noteRefusal(result);
        if (result >= 0 && pacing.placeOf(packets))
            waiting.push_back(std::move(picture));
    }
    ++packets;
    if (picture)
        av_frame_unref(picture.get());
    return nextWaiting();
}

/// Null if there is none.
AVFramePointer SerialDecoder::nextWaiting() {
    if (waiting.empty())
        return nullptr;
    AVFramePointer next = std::move(waiting.front());
    waiting.pop_front();
    return next;
}

AVFramePointer SerialDecoder::takeHeld() {
    if (AVFramePointer next = nextWaiting())
        return next;
    AVFramePointer held(av_frame_alloc());
    avcodec_send_packet(context.get(), nullptr);
    const bool isTaken = held && avcodec_receive_frame(context.get(), held.get()) >= 0;
    return isTaken ? std::move(held) : nullptr;
}

bool SerialDecoder::flush() {
    waiting.clear();
    pacing.restart();
    avcodec_flush_buffers(context.get());
    return true;
}

/// Decoders that find no room for what they keep beside the pictures often answer that the data is
/// invalid; what the system said of it is then still there.
void SerialDecoder::noteRefusal(int result) {
    const bool isError = result < 0 && result != AVERROR(EAGAIN);
    isRefused = isRefused || isError;
    if (result == AVERROR(ENOMEM) || (isError && errno == ENOMEM))
        memory.noteShortage();
    // That is what the AV1 decoder says of more than `max_pixels`.
    if (result == AVERROR(ERANGE) && context->codec_id == AV_CODEC_ID_AV1)
        memory.noteTooLarge();
}
