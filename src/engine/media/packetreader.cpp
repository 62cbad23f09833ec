// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "packetreader.h"

#include <cstring>

void PacketReader::restart() {
    returned.clear();
    nextNumber = 0;
    isKeyframesOnly = false;
    index.reset();
    hasMismatch = false;
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
    auto packet = readNext();
    if (!packet || (index && !compare(*packet)))
        return std::nullopt;
    if (watch)
        watch(*packet);
    return packet;
}

/// From the file.
std::optional<NumberedPacket> PacketReader::readNext() {
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
        if (packet->stream_index == stream().index && packet->size > 0 && isWanted(*packet))
            return NumberedPacket{nextNumber++, std::move(packet)};
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

bool PacketReader::goTo(const PacketIndexPointer& packets, qint64 number) {
    if (number < 0 || number >= qint64(packets->size()))
        return false;
    index = packets;
    hasMismatch = false;
    // Of packets that a parser has cut only those have a place at which something began.
    qint64 placed = number;
    while (placed > 0 && (*index)[std::size_t(placed)].position < 0)
        --placed;
    const std::int64_t second = av_rescale_q(1, {1, 1}, stream().time_base);
    // Containers without a list of key frames lead to some place around the time.
    constexpr int mostTries = 6;
    std::int64_t back = 0;
    for (int i = 0; i < mostTries && !isInterrupted(); ++i) {
        if (findFrom((*index)[std::size_t(placed)].dts - back, placed))
            return skipUpTo(number);
        back = back == 0 ? second : back * 4;
    }
    return false;
}

/// Seeks to `dts` and reads on up to packet `number`, which is read next then.
bool PacketReader::findFrom(std::int64_t dts, qint64 number) {
    if (!seek(dts))
        return false;
    constexpr int mostBefore = 4096; // packets: some minutes
    const std::int64_t position = (*index)[std::size_t(number)].position;
    for (int i = 0; i < mostBefore; ++i) {
        auto packet = readNext();
        if (!packet || packet->packet->pos > position)
            return false;
        if (!isIndexed(*packet->packet, number))
            continue;
        packet->number = number;
        nextNumber = number + 1;
        packet->packet->dts = (*index)[std::size_t(number)].dts;
        returned.push_back(std::move(*packet));
        return true;
    }
    return false;
}

/// False where the packets before that are not those of the index.
bool PacketReader::skipUpTo(qint64 number) {
    while (auto packet = read()) {
        if (packet->number == number) {
            returned.push_back(std::move(*packet));
            return true;
        }
    }
    return false;
}

bool PacketReader::isIndexed(const AVPacket& packet, qint64 number) const {
    if (number >= qint64(index->size()))
        return false;
    const IndexedPacket& known = (*index)[std::size_t(number)];
    return packet.pos == known.position && packet.size == known.bytes;
}

/// Behind a seek demuxers reckon times that are missing in the file otherwise than from the start.
bool PacketReader::compare(NumberedPacket& packet) {
    hasMismatch = !isIndexed(*packet.packet, packet.number);
    hasEnded = hasEnded || hasMismatch;
    if (!hasMismatch)
        packet.packet->dts = (*index)[std::size_t(packet.number)].dts;
    return !hasMismatch;
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
