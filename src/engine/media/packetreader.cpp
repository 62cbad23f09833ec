// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "packetreader.h"

#include <cstring>

void PacketReader::restart() {
    returned.clear();
    nextNumber = 0;
    isKeyframesOnly = false;
    hasEnded = false;
    end = {};
}

void PacketReader::setWatch(std::function<void(const NumberedPacket&)> newWatch) {
    watch = std::move(newWatch);
}

void PacketReader::putBack(std::deque<NumberedPacket> packets) {
    for (NumberedPacket& later : returned)
        packets.push_back(std::move(later));
    returned = std::move(packets);
}

std::optional<NumberedPacket> PacketReader::read() {
    if (!returned.empty()) {
        NumberedPacket packet = std::move(returned.front());
        returned.pop_front();
        return packet;
    }
    const LibavErrorScope scope(demuxer.errors);
    PacketPointer packet(av_packet_alloc());
    while (demuxer.stream() && !hasEnded && !isInterrupted()) {
        const int result =
            packet ? av_read_frame(demuxer.context(), packet.get()) : AVERROR(ENOMEM);
        hasEnded = result < 0;
        if (hasEnded) {
            noteEnd(result);
            break;
        }
        // An empty packet holds no picture, and would tell the decoder that the stream has ended.
        if (packet->stream_index == stream().index && packet->size > 0 && isWanted(*packet)) {
            NumberedPacket numbered{nextNumber++, std::move(packet)};
            if (watch)
                watch(numbered);
            return numbered;
        }
        av_packet_unref(packet.get());
    }
    return std::nullopt;
}

bool PacketReader::isWanted(const AVPacket& packet) const {
    return !isKeyframesOnly || (packet.flags & AV_PKT_FLAG_KEY) != 0;
}

/// Where the container has a list of its packets, the others are then not even read. MP4 files
/// count wrong what they leave out where pictures are not shown in the order of their packets.
void PacketReader::readKeyframesOnly() {
    isKeyframesOnly = true;
    const AVFormatContext& format = *demuxer.context();
    for (unsigned i = 0; i < format.nb_streams; ++i)
        format.streams[i]->discard = AVDISCARD_ALL;
    const bool isCountedWrong =
        std::strstr(format.iformat->name, "mp4") && stream().codecpar->video_delay > 0;
    demuxer.stream()->discard = isCountedWrong ? AVDISCARD_DEFAULT : AVDISCARD_NONKEY;
}

bool PacketReader::seek(std::int64_t dts) {
    const LibavErrorScope scope(demuxer.errors);
    returned.clear();
    hasEnded = false;
    end = {};
    return demuxer.canReopen() &&
           av_seek_frame(demuxer.context(), stream().index, dts, AVSEEK_FLAG_BACKWARD) >= 0;
}

/// Tells a failed read from an end, which the demuxer's own answer does not: several answer an I/O
/// error where a file is merely cut off, and the plain end where the disk has failed. What the
/// reading itself ran into stands beside the buffer.
void PacketReader::noteEnd(int result) {
    if (isInterrupted())
        return;
    const AVIOContext* bytes = demuxer.context()->pb;
    if (bytes && bytes->error < 0)
        end = {ReadEnd::Cause::ReadError, libavErrorText(bytes->error)};
    else if (result == AVERROR(ENOMEM))
        end = {ReadEnd::Cause::OutOfMemory, libavErrorText(result)};
}
