// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keyframedecoder.h"

#include <future>

namespace {

/// Forgets all other packets before and behind this one: key frames that do not begin a stream of
/// their own would else wait for what was left out between them.
AVFramePointer decodeAlone(AVCodecContext& context, const AVPacket& packet) {
    AVFramePointer picture(av_frame_alloc());
    avcodec_flush_buffers(&context);
    const bool isSent = avcodec_send_packet(&context, &packet) >= 0;
    avcodec_send_packet(&context, nullptr);
    const bool isThere = isSent && picture && avcodec_receive_frame(&context, picture.get()) >= 0;
    return isThere ? std::move(picture) : nullptr;
}

std::int64_t shownAt(const AVPacket& packet) {
    return packet.pts == AV_NOPTS_VALUE ? packet.dts : packet.pts;
}

} // namespace

KeyframeDecoder::KeyframeDecoder(std::vector<CodecContextPointer> contexts, PacketReader& reader,
                                 const FrameBudget& memory)
    : contexts(std::move(contexts))
    , reader(reader)
    , memory(memory) {}

FrameDecoder::Result KeyframeDecoder::next() {
    while (frames.empty() && !reader.isInterrupted() && decodeSome()) {
    }
    if (memory.hasFailed())
        return {Outcome::OutOfMemory, {}};
    if (frames.empty())
        return {Outcome::End, {}};
    Frame frame = std::move(frames.front());
    frames.pop_front();
    return {Outcome::Frame, std::move(frame)};
}

/// One packet for each decoder. False at the end of the stream.
bool KeyframeDecoder::decodeSome() {
    std::vector<NumberedPacket> packets;
    while (packets.size() < contexts.size()) {
        auto packet = reader.read();
        if (!packet)
            break;
        packets.push_back(std::move(*packet));
    }
    std::vector<std::future<AVFramePointer>> decoded;
    decoded.reserve(packets.size());
    // Where no thread can be had, it is done at the moment.
    const auto policy =
        packets.size() > 1 ? std::launch::async | std::launch::deferred : std::launch::deferred;
    for (std::size_t i = 0; i < packets.size(); ++i)
        decoded.push_back(std::async(
            policy, [this, &packets, i] { return decodeAlone(*contexts[i], *packets[i].packet); }));
    for (std::size_t i = 0; i < packets.size(); ++i) {
        AVFramePointer picture = decoded[i].get();
        if (picture)
            frames.push_back(frameOf(std::move(picture), packets[i].number,
                                     shownAt(*packets[i].packet), reader.stream().time_base));
    }
    return !packets.empty();
}
