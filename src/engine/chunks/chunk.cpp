// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunk.h"

#include <algorithm>

ChunkStream::ChunkStream(const AVCodecParameters& original, FrameBudget& memory)
    : parameters(avcodec_parameters_alloc())
    , memory(memory) {
    if (parameters && avcodec_parameters_copy(parameters.get(), &original) < 0)
        parameters.reset();
}

Chunk::~Chunk() {
    if (isLetGo)
        stream->keptBytes -= bytes;
}

void Chunk::add(NumberedPacket packet) {
    bytes += packet.packet->size;
    packets.push_back(std::move(packet));
}

void Chunk::letGo(int handedOut) {
    if (isLetGo)
        return;
    isLetGo = true;
    stream->keptBytes += bytes;
    // The handles have taken theirs, but for the last one, which may have come only now.
    kept.erase(kept.begin(), kept.lower_bound(std::min(handedOut, int(results.size()) - 1)));
}

std::vector<const AVPacket*> Chunk::decodedPackets() const {
    std::vector<const AVPacket*> decoded;
    decoded.reserve(packets.size() + tail.size());
    for (std::size_t i = 0; i < packets.size(); ++i) {
        if (i == 0 || int(i) > leading)
            decoded.push_back(packets[i].packet.get());
    }
    for (const PacketPointer& packet : tail)
        decoded.push_back(packet.get());
    return decoded;
}

int Chunk::expectedPictures() const {
    const int leadingOfNext = std::max(0, int(tail.size()) - 1);
    return int(packets.size()) - leading + leadingOfNext;
}

qint64 Chunk::firstPicture() const {
    return packets.front().number + leading;
}

bool areAlike(const AVFrame& a, const AVFrame& b) {
    return a.width == b.width && a.height == b.height && a.format == b.format;
}
