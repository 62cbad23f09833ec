// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunkreader.h"

#include "logging.h"

namespace {

double secondsOf(std::int64_t dts, const AVRational& timeBase) {
    return double(dts) * (double(timeBase.num) / double(timeBase.den));
}

} // namespace

ChunkReader::ChunkReader(PacketReader& reader, FrameBudget& memory, CodecContextPointer context,
                         const ChunkPlan& plan, const PictureComparisonMaker& maker,
                         const PictureKeeperMaker& keeperMaker)
    : reader(reader)
    , plan(plan)
    , stream(std::make_shared<ChunkStream>(*reader.stream().codecpar, memory))
    , cutter(reader, stream, plan)
    , order(maker(), keeperMaker ? keeperMaker() : nullptr)
    , hasTimes(reader.stream().start_time != AV_NOPTS_VALUE)
    , workers(plan.workers, stream, std::move(context), maker, keeperMaker,
              [&reader] { return reader.isInterrupted(); }) {}

std::optional<ChunkFrame> ChunkReader::next() {
    begin();
    while (!isNextCertain() && !hasDoubt) {
        fill();
        if (reader.isInterrupted() || inHand.empty())
            return std::nullopt;
        hasDoubt = !handOnNext();
    }
    if (!isNextCertain() || reader.isInterrupted())
        return std::nullopt;
    ChunkFrame picture = std::move(pictures.front());
    pictures.pop_front();
    lastNumber = picture.packet;
    return picture;
}

/// The last pictures of a chunk come with packets of the next one, if these are what they seem.
bool ChunkReader::isNextCertain() const {
    return !pictures.empty() && before && pictures.front().packet <= before->packets.back().number;
}

/// Frame threads are faster where there are fewer chunks than workers, and exact without a
/// second look where there is one alone.
void ChunkReader::begin() {
    if (hasBegun)
        return;
    hasBegun = true;
    hasDoubt = !workers.areThere();
    while (!isAtEnd && int(cutter.whole.size()) < plan.workers && canReadOn())
        isAtEnd = !cutter.read();
    hasDoubt = hasDoubt || int(cutter.whole.size()) < plan.workers;
}

/// Reads on for as long as there is room, and has what is whole decoded.
void ChunkReader::fill() {
    for (;;) {
        while (!cutter.whole.empty()) {
            inHand.push_back(cutter.whole.front());
            cutter.whole.pop_front();
            workers.add(inHand.back());
        }
        const int enough = plan.workers + 2;
        if (isAtEnd || int(inHand.size()) >= enough || (!inHand.empty() && !canReadOn()))
            return;
        // A chunk that never ends is for frame threads.
        if (cutter.isTooLong()) {
            hasDoubt = inHand.empty();
            return;
        }
        isAtEnd = !cutter.read();
    }
}

bool ChunkReader::canReadOn() const {
    return !cutter.isTooLong() && cutter.bytesRead() - bytesDone < plan.bytesInHand;
}

/// False in doubt.
bool ChunkReader::handOnNext() {
    const ChunkPointer chunk = inHand.front();
    workers.wait(*chunk);
    if (reader.isInterrupted())
        return true;
    const auto numbers = order.add(*chunk);
    if (!numbers) {
        qCDebug(engineLog, "chunk %lld is in doubt", static_cast<long long>(chunk->index));
        return false;
    }
    if (!numbers->empty())
        readMarksUpTo(numbers->back());
    makePictures(chunk, *numbers);
    inHand.pop_front();
    letGoOfBefore(*chunk);
    before = chunk;
    return true;
}

void ChunkReader::letGoOfBefore(Chunk& next) {
    if (!before)
        return;
    const auto last = next.kept.find(-1);
    if (last != next.kept.end()) {
        before->kept[int(before->results.size()) - 1] = std::move(last->second);
        next.kept.erase(last);
    }
    bytesDone += before->bytes;
    // Its last pictures come with packets of the next one.
    const bool isWaiting = !pictures.empty() && pictures.front().chunk == before;
    before->letGo(isWaiting ? pictures.front().index : int(before->results.size()));
}

/// A picture at the end of a chunk is completed by a packet behind it.
void ChunkReader::readMarksUpTo(qint64 number) {
    while (!isAtEnd && !cutter.mark(number))
        isAtEnd = !cutter.read();
}

void ChunkReader::makePictures(const ChunkPointer& chunk, const std::vector<qint64>& numbers) {
    const AVRational& timeBase = reader.stream().time_base;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        // Those that no packet completes are never handed out.
        const PacketMark* mark = cutter.mark(numbers[i]);
        if (!mark)
            return;
        ChunkFrame picture;
        picture.packet = numbers[i];
        picture.time = secondsOf(mark->dts, timeBase);
        picture.isTimeMissing = mark->dts == AV_NOPTS_VALUE;
        picture.width = chunk->width;
        picture.height = chunk->height;
        picture.motion = chunk->results[i].motion;
        picture.bytePosition = mark->bytePosition;
        picture.headerFrameRate = hasTimes ? 0.0 : chunk->headerFrameRate;
        picture.chunk = chunk;
        picture.index = int(i);
        pictures.push_back(std::move(picture));
        cutter.forgetBefore(numbers[i]);
    }
}

ChunkReader::Rest ChunkReader::takeRest() {
    Rest rest;
    rest.lastNumber = lastNumber;
    rest.isDamaged = !inHand.empty() && inHand.front()->isDamaged;
    if (stream->firstPacket)
        rest.firstPacket.reset(av_packet_clone(stream->firstPacket.get()));
    if (before)
        before->letGo(int(before->results.size()));
    const std::vector<ChunkPointer> chunks = chunksToGoOn();
    const bool isFromStart = chunks.empty() || chunks.front()->packets.front().number == 0;
    if (!isFromStart && !order.isDelayUsual())
        return rest;
    if (!isFromStart)
        rest.reorderDelay = order.reorderDelay();
    for (const ChunkPointer& chunk : chunks) {
        for (const NumberedPacket& packet : chunk->packets) {
            PacketPointer reference(av_packet_clone(packet.packet.get()));
            if (!reference)
                return {{}, std::move(rest.firstPacket), lastNumber, rest.isDamaged, -1};
            rest.packets.push_back({packet.number, std::move(reference)});
        }
    }
    return rest;
}

std::vector<ChunkPointer> ChunkReader::chunksToGoOn() const {
    std::vector<ChunkPointer> chunks;
    if (before)
        chunks.push_back(before);
    chunks.insert(chunks.end(), inHand.begin(), inHand.end());
    chunks.insert(chunks.end(), cutter.whole.begin(), cutter.whole.end());
    const std::vector<ChunkPointer> unfinished = cutter.unfinished();
    chunks.insert(chunks.end(), unfinished.begin(), unfinished.end());
    return chunks;
}

FramePointer decodeAgain(const ChunkFrame& picture) {
    FramePointer found;
    decodeAgain(*picture.chunk, [&found, &picture](int place, FramePointer frame) {
        if (place == picture.index)
            found = std::move(frame);
        return !found;
    });
    return found;
}

void decodeAgain(const Chunk& chunk,
                 const std::function<bool(int place, FramePointer frame)>& take) {
    qCDebug(engineLog, "chunk %lld once more", static_cast<long long>(chunk.index));
    ChunkDecoder decoder(chunk.stream, nullptr, {}, nullptr, [] { return false; });
    decoder.decodeAgain(chunk, take);
}

QImage keptPicture(const ChunkFrame& picture) {
    const KeptPictures& kept = picture.chunk->kept;
    const auto found = kept.find(picture.index);
    return found == kept.end() ? QImage() : found->second.picture;
}

qint64 keptBytes(const ChunkFrame& picture) {
    return picture.chunk->stream->keptBytes;
}
