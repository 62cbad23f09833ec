// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "packetskip.h"

namespace {

bool isKey(const NumberedPacket& packet) {
    return (packet.packet->flags & AV_PKT_FLAG_KEY) != 0;
}

/// The packets since the second last key frame, or since the start of the file.
class LastPackets {
public:
    explicit LastPackets(bool isAtStart)
        : hasBegun(isAtStart) {}

    void add(NumberedPacket packet) {
        hasBegun = hasBegun || isKey(packet);
        if (!hasBegun)
            return;
        if (isKey(packet))
            addKey(packet.number);
        bytes += packet.packet->size;
        packets.push_back(std::move(packet));
    }

    bool isEmpty() const { return packets.empty(); }

    bool areTooMany() const { return bytes > mostSkippedBytes; }

    /// None where they begin in the middle with the last key frame.
    std::deque<NumberedPacket> take() {
        const bool isEnough = packets.front().number == 0 || packets.front().number < lastKey;
        return isEnough ? std::move(packets) : std::deque<NumberedPacket>();
    }

private:
    void addKey(qint64 number) {
        const qint64 first = lastKey;
        lastKey = number;
        while (first >= 0 && packets.front().number < first) {
            bytes -= packets.front().packet->size;
            packets.pop_front();
        }
    }

    bool hasBegun;
    std::deque<NumberedPacket> packets;
    qint64 bytes = 0;
    qint64 lastKey = -1;
};

} // namespace

std::deque<NumberedPacket> skipTo(PacketReader& reader, std::int64_t dts) {
    LastPackets last(reader.isAtStart());
    std::int64_t before = AV_NOPTS_VALUE; // the smallest number
    while (auto packet = reader.read()) {
        const std::int64_t time = packet->packet->dts;
        if (time == AV_NOPTS_VALUE || time < before || last.areTooMany())
            break;
        before = time;
        last.add(std::move(*packet));
        if (time >= dts)
            return last.isEmpty() ? std::deque<NumberedPacket>() : last.take();
    }
    return {};
}

namespace {

/// Some containers give the first packets behind a seek no decoding time.
std::int64_t seekTime(const AVPacket& packet) {
    return packet.dts == AV_NOPTS_VALUE ? packet.pts : packet.dts;
}

std::optional<NumberedPacket> nextKey(PacketReader& reader) {
    auto packet = reader.read();
    while (packet && !isKey(*packet))
        packet = reader.read();
    return packet;
}

/// A key frame at or before `latest`, the last one if the container knows; reading goes on behind
/// it.
std::optional<NumberedPacket> seekToKey(PacketReader& reader, std::int64_t latest) {
    std::int64_t back = 0;
    const std::int64_t second = av_rescale_q(1, {1, 1}, reader.stream().time_base);
    // Containers without a list of key frames lead to some place before the time.
    constexpr int mostTries = 12;
    for (int i = 0; i < mostTries && reader.seek(latest - back); ++i) {
        auto key = nextKey(reader);
        const std::int64_t time = key ? seekTime(*key->packet) : AV_NOPTS_VALUE;
        if (time != AV_NOPTS_VALUE && time <= latest)
            return key;
        back = back == 0 ? second : back * 2;
    }
    return std::nullopt;
}

} // namespace

std::optional<NumberedPacket> seekBefore(PacketReader& reader, std::int64_t dts) {
    const auto last = seekToKey(reader, dts);
    if (!last)
        return std::nullopt;
    auto first = seekToKey(reader, seekTime(*last->packet) - 1);
    return first ? std::move(first) : seekToKey(reader, dts);
}
